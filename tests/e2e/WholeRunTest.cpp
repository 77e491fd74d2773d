#include "E2eHarness.h"
#include "calendar/MainFormLayout.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>
#include <QThread>

using namespace e2e;

namespace {

const QLocale English(QLocale::English, QLocale::UnitedStates);

// The program through everything a person does. What its processes print (the
// copy that Ctrl+N starts too) and, in the sanitized build, every report they make land in
// files; any line in them fails the test.
class WholeRun : public E2eTest
{
protected:
    // Every process has ended by now, and has written what it had to report.
    void TearDown() override
    {
        E2eTest::TearDown();
        EXPECT_EQ(reports(), QString());
    }
    // Starts the program with what it prints going to a file: ASan's reports go to files of
    // their own (UBSan's, which ignore that setting next to ASan, go to standard error).
    QProcess &launch()
    {
        const std::string logs = m_reports.path().toStdString() + '/';
        const std::string asan = "ASAN_OPTIONS=detect_leaks=1:fast_unwind_on_malloc=0:log_path=";
        QProcess &program = startProgram(
            { "sh", "-c",
              "exec env " + asan + logs + "asan LSAN_OPTIONS=print_suppressions=0:suppressions="
                  + QLV_SANITIZER_SUPPRESSIONS " UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 "
                                               "\"$0\" 2>>"
                  + logs + "stderr" });
        m_main = mainWindow(60000);
        EXPECT_TRUE(xdotool({ "windowactivate", "--sync", m_main }));
        return program;
    }
    // Every sanitizer report and everything printed so far, in full.
    QString reports() const
    {
        QString all;
        for (const QFileInfo &file : QDir(m_reports.path()).entryInfoList(QDir::Files)) {
            QFile f(file.filePath());
            all += f.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(f.readAll()) : QString();
        }
        return all;
    }
    int shownOf(qint64 pid)
    {
        QString out;
        run({ "xdotool", "search", "--onlyvisible", "--pid", std::to_string(pid) }, &out);
        return int(out.split(u'\n', Qt::SkipEmptyParts).size());
    }
    bool pointAt(const std::string &window, QPoint at)
    {
        at += geometry(window).topLeft(); // no --sync: a pointer already there would never move
        return xdotool({ "mousemove", std::to_string(at.x()), std::to_string(at.y()) });
    }
    bool click(const QRect &control)
    {
        return pointAt(m_main, control.center()) && xdotool({ "click", "1" });
    }
    // Whether the date KnCopy puts on the clipboard lies in the month of `date`.
    bool showsMonthOf(QDate date)
    {
        QString text;
        EXPECT_TRUE(click(MainFormLayout::KnCopy));
        waitFor([&] { return run({ "xclip", "-o", "-selection", "clipboard" }, &text); }, 5000);
        return text.contains(English.monthName(date.month()))
            && text.contains(QString::number(date.year()));
    }
    // A list dropped down by a click, one entry `key` on, taken by Enter.
    bool choose(const QRect &list, const char *key)
    {
        return click(list)
            && (QThread::msleep(700), xdotool({ "key", "--delay", "150", key, "Return" }));
    }
    // The pointer rests on `at` until one more window of the program shows: the tooltip.
    bool tipShows(const std::string &window, QPoint at, qint64 pid)
    {
        const int before = shownOf(pid);
        return pointAt(window, at - QPoint(30, 0)) && pointAt(window, at)
            && waitFor([&] { return shownOf(pid) > before; }, 8000);
    }

    QTemporaryDir m_reports; // outlives the harness's folder, which goes with its processes
};

} // namespace

TEST_F(WholeRun, EveryWindowWithoutASanitizerReport)
{
    // Under openbox, a first run writes its file at once; the next starts with it.
    startWindowManager("openbox");
    QProcess &first = launch();
    EXPECT_EQ(readSettings().count("\r\n"), 13);
    ASSERT_TRUE(xdotool({ "key", "alt+q" }));
    EXPECT_TRUE(first.waitForFinished(30000) && first.exitCode() == 0);

    QProcess &program = launch();
    // Days up to the 15th, so that no list choice runs over the month's end; then undo and redo.
    const QDate today = QDate::currentDate();
    for (const QRect &control : { MainFormLayout::ButtNextMonth, MainFormLayout::ButtNextMonth,
                                  MainFormLayout::ButtPrevMonth, MainFormLayout::dayCell(15) })
        ASSERT_TRUE(click(control));
    const bool december = today.addMonths(1).month() == 12;
    ASSERT_TRUE(choose(MainFormLayout::ListMonth, december ? "Up" : "Down"));
    ASSERT_TRUE(choose(MainFormLayout::ListYear, "Down"));
    for (const QRect &control :
         { MainFormLayout::dayCell(16), MainFormLayout::ButtUndo, MainFormLayout::ButtRedo })
        ASSERT_TRUE(click(control));
    EXPECT_TRUE(showsMonthOf(today.addMonths(december ? 0 : 2).addYears(1)));

    const qint64 pid = program.processId();
    EXPECT_TRUE(tipShows(m_main, MainFormLayout::LabelSettings.center(), pid)) << "no tooltip";

    // Ctrl+N starts the private copy of this very build: sanitized when this one is.
    ASSERT_TRUE(xdotool({ "key", "ctrl+n" }));
    std::map<qint64, std::string> copies;
    ASSERT_TRUE(waitFor([&] { return !(copies = adoptCopies(pid)).empty(); }, 60000));
    const auto [copyPid, copyWindow] = *copies.begin();
    const QString proc = QStringLiteral("/proc/%1").arg(copyPid);
    EXPECT_EQ(QFile::symLinkTarget(proc + QStringLiteral("/exe")),
              m_root + QStringLiteral("/bin/qlvcallt"));
    QFile maps(proc + QStringLiteral("/maps"));
    ASSERT_TRUE(maps.open(QIODevice::ReadOnly));
    EXPECT_EQ(maps.readAll().contains("libasan"), bool(QLV_SANITIZED));
    ASSERT_TRUE(xdotool({ "windowactivate", "--sync", copyWindow }));
    ASSERT_TRUE(xdotool({ "key", "alt+q" }));
    EXPECT_TRUE(waitFor([&] { return !QFile::exists(proc); }, 30000));

    // Minimise and restore, then drag by the bare body.
    ASSERT_TRUE(xdotool({ "windowactivate", "--sync", m_main }));
    ASSERT_TRUE(click(MainFormLayout::KnMin));
    EXPECT_TRUE(waitFor([&] { return shownOf(pid) == 0; }, 10000));
    ASSERT_TRUE(xdotool({ "windowactivate", "--sync", m_main }));
    EXPECT_FALSE(windows("QLV Calendar Lite").empty());
    const QRect before = geometry(m_main);
    // The click that brings a window back must not drag it: drags wait 1.5 s after a restore.
    QThread::msleep(1700);
    ASSERT_TRUE(pointAt(m_main, MainFormLayout::LabelActDate.center() - QPoint(1, 0)));
    ASSERT_TRUE(pointAt(m_main, MainFormLayout::LabelActDate.center()));
    ASSERT_TRUE(xdotool({ "mousedown", "1" }));
    for (int step = 0; step < 3; ++step)
        ASSERT_TRUE(xdotool({ "mousemove_relative", "--sync", "40", "20" }));
    ASSERT_TRUE(xdotool({ "mouseup", "1" }));
    QThread::msleep(300);
    EXPECT_EQ(geometry(m_main).topLeft(), before.topLeft() + QPoint(120, 60));

    // F1, and Esc closes the About window.
    ASSERT_TRUE(xdotool({ "key", "F1" }));
    ASSERT_EQ(windows("About QLV Calendar Lite", 30000).size(), 1U);
    ASSERT_TRUE(xdotool({ "key", "Escape" }));
    EXPECT_TRUE(waitFor([&] { return windows("About QLV Calendar Lite", 0).empty(); }, 10000));

    // Every setting changed and previewed, then Cancel: the file stays; the same again, then Ok.
    const QByteArray stored = readSettings();
    for (const char *end : { "Escape", "ctrl+Return" }) {
        ASSERT_TRUE(xdotool({ "windowactivate", "--sync", m_main }));
        ASSERT_TRUE(xdotool({ "key", "F9" }));
        const Args settings = windows("  Calendar Settings  ", 30000);
        ASSERT_EQ(settings.size(), 1U);
        EXPECT_TRUE(tipShows(settings.front(), { 230, 56 }, pid)) << "no tooltip";
        ASSERT_TRUE(
            xdotool({ "key", "--delay", "100", "Tab", "Down", "Return", "Down", "Return", "Down",
                      "Return", "Right", "Return", "Up", "Return", "Down", "Return", "Up", end }));
        EXPECT_TRUE(waitFor([&] { return windows("  Calendar Settings  ", 0).empty(); }, 10000));
        EXPECT_EQ(readSettings() == stored, end == std::string("Escape"));
    }
    for (const char *line :
         { "Language=Russian", "FirstWeekDay=Monday", "ColorScheme=Green", "CalendarBorderWidth=3",
           "CalendarAlignToCenter=Yes", "CalendarPicture=Sky", "CalendarTopmost=Yes" })
        EXPECT_TRUE(readSettings().contains(line)) << line << " in\n" << readSettings().data();

    ASSERT_TRUE(xdotool({ "key", "alt+q" }));
    EXPECT_TRUE(program.waitForFinished(30000) && program.exitCode() == 0);
}
