#include "E2eHarness.h"
#include "calendar/MainFormLayout.h"

#include <QFile>
#include <QRegularExpression>
#include <QThread>

using namespace e2e;

namespace {

// weston nested in the test's X server: its X11 back end turns the keys and clicks that xdotool
// sends to its window into Wayland input (the headless back end has no input device). Its kiosk
// shell has no panel to click by mistake; --debug lets weston-debug list the windows shown.
class NativeWayland : public E2eTest
{
protected:
    void SetUp() override
    {
        E2eTest::SetUp();
        QFile config(m_root + QStringLiteral("/weston.ini"));
        ASSERT_TRUE(config.open(QIODevice::WriteOnly));
        config.write("[core]\nshell=kiosk-shell.so\n");
        config.close();
        start({ "weston", "--debug", "--config=" + config.fileName().toStdString(),
                "--backend=x11-backend.so", "--use-pixman", "--socket=qlv-wayland", "--width=1280",
                "--height=800" });
        ASSERT_TRUE(waitFor(
            [&] { return QFile::exists(m_root + QStringLiteral("/runtime/qlv-wayland")); }, 15000))
            << "weston did not start";
        // Keys reach weston only while its window has the X focus.
        QString output;
        ASSERT_TRUE(waitFor(
            [&] {
                return run({ "xdotool", "search", "--class", "^Weston Compositor$" }, &output);
            },
            15000));
        ASSERT_TRUE(xdotool({ "windowfocus", "--sync", output.toStdString() }));
    }
    // The windows weston shows, as its scene graph lists them.
    QString scene()
    {
        QString out;
        run({ "env", "WAYLAND_DISPLAY=qlv-wayland", "weston-debug", "scene-graph" }, &out);
        return out;
    }
    // The month's name in the calendar's title line, as a digest of its pixels.
    QString title()
    {
        const QRect a = MainFormLayout::LabelActDate.translated(m_window);
        const QString crop = QStringLiteral("%1x%2+%3+%4").arg(a.width()).arg(a.height());
        QString out;
        run({ "import", "-window", "root", "-crop", crop.arg(a.x()).arg(a.y()).toStdString(),
              "+repage", "-format", "%#", "info:" },
            &out);
        return out;
    }

    QPoint m_window;
};

} // namespace

// The calendar on Wayland itself: it shows its window where the compositor puts it, with no
// shadow window beside it, steps a month back and forth by the arrow keys, and saves on Alt+Q
// keeping the stored position, which it can neither restore nor know, printing nothing.
TEST_F(NativeWayland, ShowsStepsAndSaves)
{
    writeSettings("[Appearance]\r\nLanguage=English\r\nCalendarLeft=1500\r\nCalendarTop=1500\r\n");
    QProcess &program = startProgram(
        { "env", "-u", "DISPLAY", "QT_QPA_PLATFORM=wayland", "WAYLAND_DISPLAY=qlv-wayland" });
    const QString calendar = QStringLiteral("top-level window 'QLV Calendar Lite'");
    ASSERT_TRUE(waitFor([&] { return scene().contains(calendar); }, 30000)) << "no window";
    QThread::msleep(1000); // time enough for a shadow to come up
    const QString shown = scene();
    EXPECT_EQ(shown.count(u"role xdg_toplevel"), 1) << "a shadow beside the window?\n"
                                                    << shown.toStdString();
    const QRegularExpressionMatch at =
        QRegularExpression(QRegularExpression::escape(calendar)
                           + QStringLiteral(R"(.*\n\s*position: \((\d+), (\d+)\))"))
            .match(shown);
    ASSERT_TRUE(at.hasMatch()) << shown.toStdString();
    m_window = { at.captured(1).toInt(), at.captured(2).toInt() };

    // A click on the last cell, a day of the next month, gives the window the focus and steps
    // into that month; a click that comes while the window is still settling does nothing, so
    // up to three are tried. Up twice goes two weeks back, into the first month; Down twice
    // comes back.
    const QString month = title();
    ASSERT_FALSE(month.isEmpty());
    const QPoint cell = m_window + MainFormLayout::dayCell(42).center();
    ASSERT_TRUE(xdotool({ "mousemove", std::to_string(cell.x()), std::to_string(cell.y()) }));
    bool stepped = false;
    for (int i = 0; i < 3 && !stepped; ++i) {
        ASSERT_TRUE(xdotool({ "click", "1" }));
        stepped = waitFor([&] { return title() != month; }, 3000);
    }
    ASSERT_TRUE(stepped) << "no click reached the calendar";
    const QString next = title();
    ASSERT_TRUE(xdotool({ "key", "--delay", "150", "Up", "Up" }));
    EXPECT_TRUE(waitFor([&] { return title() == month; }, 5000)) << "no month back";
    ASSERT_TRUE(xdotool({ "key", "--delay", "150", "Down", "Down" }));
    EXPECT_TRUE(waitFor([&] { return title() == next; }, 5000)) << "not the month again";

    ASSERT_TRUE(xdotool({ "key", "alt+q" }));
    EXPECT_TRUE(program.waitForFinished(15000) && program.exitCode() == 0);
    EXPECT_EQ(program.readAllStandardError(), QByteArray());
    EXPECT_EQ(readSettings().count("\r\n"), 13) << "not saved whole";
    EXPECT_EQ(setting("CalendarLeft="), QStringLiteral("1500"));
    EXPECT_EQ(setting("CalendarTop="), QStringLiteral("1500"));
}
