#include "app/Program.h"
#include "app/SettingsFile.h"
#include "appearance/ResourcesForm.h"
#include "calendar/CalendarMonthExtForm.h"
#include "support/Files.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPointer>
#include <QScreen>
#include <QTemporaryDir>
#include <QWidget>

#include <gtest/gtest.h>

#include <map>

namespace {

QWidget *topLevel(const QString &name)
{
    for (QWidget *w : QApplication::topLevelWidgets()) {
        if (w->objectName() == name)
            return w;
    }
    return nullptr;
}

// Program::Main on the offscreen platform with a private config folder; the environment it sees
// is only what the test puts in `env`.
class ProgramMain : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QApplication::setQuitOnLastWindowClosed(false);
        QDir(dir.path()).mkpath(QStringLiteral("program"));
        env["XDG_CONFIG_HOME"] = QFile::encodeName(dir.filePath(QStringLiteral("config")));
        env["LANG"] = "en_US.UTF-8";
    }

    void TearDown() override
    {
        // A window deletes its own shadow, so hold every window by a guarded pointer.
        QList<QPointer<QWidget>> windows;
        for (QWidget *window : QApplication::topLevelWidgets())
            windows.append(window);
        for (const QPointer<QWidget> &window : windows)
            delete window.data();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        program.reset();
    }

    void start()
    {
        ProgramOptions options;
        options.applicationDir = dir.filePath(QStringLiteral("program"));
        options.fallbackHome = dir.path();
        options.getEnv = [vars = env](const char *name) {
            const auto it = vars.find(name);
            return it == vars.end() ? QByteArray() : it->second;
        };
        options.showMainWindow = CalendarMonthExtForm::showNew;
        program = std::make_unique<Program>(options);
        program->Main();
        QCoreApplication::processEvents();
    }

    QString settingsPath() const
    {
        return dir.filePath(QStringLiteral("config/QLVCalendarLite/qlvcal.ini"));
    }
    QWidget *mainWindow() const { return topLevel(QStringLiteral("CalendarMonthExtForm")); }

    QTemporaryDir dir;
    std::map<std::string, QByteArray> env;
    std::unique_ptr<Program> program;
};

struct StartRow
{
    const char *name;
    QByteArray file; // null: none; "/": a folder in its place
    int reads;
    QPoint topLeft; // or one of the two marks below
};

const QPoint Centred(-1, -1);
const QPoint BottomRight(-2, -2); // pulled back into the screen's bottom-right corner

class Startup : public ProgramMain, public ::testing::WithParamInterface<StartRow>
{ };

// A good file is read once; a missing or bad one is rewritten and read again; one that can never
// be written is tried four times, and the program still starts on its defaults. The frameless
// Main window stands where the file says, kept on the screen, by default in the centre.
TEST_P(Startup, ReadsAtMostFourTimesAndPlacesTheMainWindow)
{
    const StartRow &row = GetParam();
    if (row.file == "/")
        QDir().mkpath(settingsPath());
    else
        ASSERT_TRUE(row.file.isNull() || writeBytes(settingsPath(), row.file));
    start();
    EXPECT_EQ(program->settingsReads(), row.reads);
    QWidget *window = mainWindow();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(static_cast<QWidget *>(program->mainForm()), window);
    EXPECT_TRUE(window->isVisible() && (window->windowFlags() & Qt::FramelessWindowHint));
    EXPECT_EQ(program->state().settings().CalendarBorderWidth, 2);
    const QSize room = QGuiApplication::primaryScreen()->geometry().size() - QSize(400, 273);
    const QPoint expected = row.topLeft == Centred ? QPoint(room.width() / 2, room.height() / 2)
        : row.topLeft == BottomRight               ? QPoint(room.width(), room.height())
                                                   : row.topLeft;
    EXPECT_EQ(window->pos(), expected);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Files, Startup, ::testing::Values(
    StartRow { "NoFileCentres", {}, 2, Centred },
    StartRow { "SavedPosition", "CalendarLeft=1500\r\nCalendarTop=3000\r\n", 1, { 100, 200 } },
    StartRow { "OffScreenPulledBack", "CalendarLeft=99999\r\nCalendarTop=99999\r\n", 1, BottomRight },
    StartRow { "CentreWins", "CalendarLeft=1500\r\nCalendarTop=3000\r\nCalendarAlignToCenter=yes", 1, Centred },
    StartRow { "Overflow", "CalendarTop=1e999", 2, Centred },
    StartRow { "FolderInTheWay", "/", 4, Centred }),
    [](const auto &p) { return std::string(p.param.name); });
// clang-format on

struct SaveRow
{
    const char *name;
    QByteArray editedMeanwhile; // null: the file stays as start-up left it
    QByteArray expected; // null: the whole file from the record
};

class CloseSaves : public ProgramMain, public ::testing::WithParamInterface<SaveRow>
{ };

// Shut-down writes the whole record over a file nobody touched, only the position into a file
// someone else changed meanwhile (nothing while the Settings window is open: end to end).
TEST_P(CloseSaves, ChoosesWhatToWrite)
{
    const SaveRow &row = GetParam();
    start();
    ASSERT_TRUE(row.editedMeanwhile.isNull() || writeBytes(settingsPath(), row.editedMeanwhile));
    program->state().settings().ColorScheme = QStringLiteral("Pink");
    mainWindow()->move(30, 45);
    program->CloseProgram();
    const QByteArray saved = readBytes(settingsPath());
    if (row.expected.isNull()) {
        EXPECT_TRUE(saved.contains("\r\nColorScheme=Pink\r\n"));
        EXPECT_EQ(saved, program->settingsFile().fileContents());
    } else {
        EXPECT_EQ(saved, row.expected);
    }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Files, CloseSaves, ::testing::Values(
    SaveRow { "UnchangedWrittenWhole", {}, {} },
    SaveRow { "ChangedByOthersGetsOnlyThePosition",
              "Language=Russian\r\nColorScheme=Green\r\nCalendarLeft=1\r\ncalendartop=2\r\n",
              "Language=Russian\r\nColorScheme=Green\r\nCalendarLeft=450\r\nCalendarTop=675\r\n" }),
    [](const auto &p) { return std::string(p.param.name); });
// clang-format on

TEST_F(ProgramMain, UnloadsTheWindowsInOrder)
{
    start();
    EXPECT_TRUE(ResourcesForm::find()
                && program->state().IsFormLoaded(QStringLiteral("RESOURCESFORM"), false));
    QStringList gone;
    const auto watch = [&gone](QWidget *w) {
        QObject::connect(w, &QObject::destroyed,
                         [&gone, name = w->objectName()] { gone.append(name); });
    };
    watch(mainWindow());
    for (const char *name : { "TabAppForm", "ViewForm", "AboutForm", "ToolTipForm" }) {
        auto *w = new QWidget;
        w->setObjectName(QString::fromLatin1(name));
        watch(w);
        w->show();
    }
    program->CloseProgram();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(gone.join(u' '),
              QStringLiteral("ToolTipForm AboutForm ViewForm TabAppForm CalendarMonthExtForm"));
    EXPECT_TRUE(program->NoMainFormLoaded());
    // The button images are released after the windows.
    EXPECT_FALSE(ResourcesForm::find()
                 || program->state().IsFormLoaded(QStringLiteral("RESOURCESFORM"), false));
}

// The locale reaches the first run: the file is written in Russian at once, and the title
// follows.
TEST_F(ProgramMain, TheFirstRunTakesTheLocalesLanguage)
{
    env["LANG"] = "ru_RU.UTF-8";
    start();
    const QByteArray text = readBytes(settingsPath());
    EXPECT_TRUE(text.contains("\r\nLanguage=Russian\r\nColorScheme=Blue\r\nFirstWeekDay=Monday"));
    EXPECT_EQ(mainWindow()->windowTitle(), QStringLiteral("Календарь КЛВ Лайт"));
}

} // namespace
