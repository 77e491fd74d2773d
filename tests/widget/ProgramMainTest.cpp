#include "app/Program.h"
#include "app/SettingsFile.h"
#include "appearance/ResourcesForm.h"
#include "calendar/CalendarMonthExtForm.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPointer>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <map>

namespace {

QByteArray readBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeBytes(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

QWidget *topLevel(const QString &name)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *w : windows) {
        if (w->objectName() == name)
            return w;
    }
    return nullptr;
}

// Records the order in which watched windows receive their close event.
class CloseRecorder : public QObject
{
public:
    QStringList closed;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Close)
            closed.append(watched->objectName());
        return false;
    }
};

// Program::Main on the offscreen platform with a private config folder; the
// environment it sees is only what the test puts in `env`.
class ProgramMain : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QApplication::setQuitOnLastWindowClosed(false);
        QDir(dir.path()).mkpath(QStringLiteral("program"));
        QDir(dir.path()).mkpath(QStringLiteral("home"));
        env["XDG_CONFIG_HOME"] = QFile::encodeName(dir.filePath(QStringLiteral("config")));
        env["HOME"] = QFile::encodeName(dir.filePath(QStringLiteral("home")));
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
        options.fallbackHome = dir.filePath(QStringLiteral("home"));
        const auto vars = env;
        options.getEnv = [vars](const char *name) {
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

struct PlacementRow
{
    const char *name;
    QByteArray file; // empty: no file
    QPoint topLeft; // Centred: the middle of the screen
};

const QPoint Centred(-1, -1);

class MainWindowPlacement : public ProgramMain, public ::testing::WithParamInterface<PlacementRow>
{ };

} // namespace

TEST_P(MainWindowPlacement, TheFramelessMainWindowAtItsPlace)
{
    if (!GetParam().file.isEmpty())
        writeBytes(settingsPath(), GetParam().file);
    start();
    QWidget *window = mainWindow();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->size(), QSize(400, 273));
    EXPECT_TRUE(window->windowFlags() & Qt::FramelessWindowHint);
    QPoint expected = GetParam().topLeft;
    if (expected == Centred) {
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        expected = QPoint((screen.width() - 400) / 2, (screen.height() - 273) / 2);
    }
    EXPECT_EQ(window->pos(), expected);
    EXPECT_EQ(static_cast<QWidget *>(program->mainForm()), window);
}

INSTANTIATE_TEST_SUITE_P(
    Files, MainWindowPlacement,
    ::testing::Values(
        // The default position is the centre, computed in twips.
        PlacementRow { "NoFileCentres", {}, Centred },
        PlacementRow { "SavedPosition", "CalendarLeft=1500\r\nCalendarTop=3000\r\n",
                       QPoint(100, 200) },
        PlacementRow { "CentreWins",
                       "CalendarLeft=1500\r\nCalendarTop=3000\r\nCalendarAlignToCenter=yes",
                       Centred }),
    [](const ::testing::TestParamInfo<PlacementRow> &p) { return std::string(p.param.name); });

namespace {

struct QuitRow
{
    const char *name;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
};

class QuitKeysClose : public ProgramMain, public ::testing::WithParamInterface<QuitRow>
{ };

} // namespace

TEST_P(QuitKeysClose, ClosesAndSavesThePosition)
{
    start();
    QWidget *window = mainWindow();
    ASSERT_NE(window, nullptr);
    window->move(120, 140);
    QWidget *focus = window->focusWidget() ? window->focusWidget() : window;
    QTest::keyClick(focus, GetParam().key, GetParam().modifiers);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    EXPECT_EQ(mainWindow(), nullptr);
    EXPECT_TRUE(program->NoMainFormLoaded());
    const QByteArray text = readBytes(settingsPath());
    EXPECT_TRUE(text.contains("\r\nCalendarLeft=1800\r\nCalendarTop=2100\r\n"))
        << text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Keys, QuitKeysClose,
                         ::testing::Values(QuitRow { "Escape", Qt::Key_Escape, Qt::NoModifier },
                                           QuitRow { "AltQ", Qt::Key_Q, Qt::AltModifier },
                                           QuitRow { "AltX", Qt::Key_X, Qt::AltModifier }),
                         [](const ::testing::TestParamInfo<QuitRow> &p) {
                             return std::string(p.param.name);
                         });

TEST_F(ProgramMain, OtherKeysDoNotClose)
{
    start();
    QWidget *window = mainWindow();
    ASSERT_NE(window, nullptr);
    QTest::keyClick(window, Qt::Key_Q);
    QTest::keyClick(window, Qt::Key_X, Qt::ControlModifier);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_NE(mainWindow(), nullptr);
}

TEST_F(ProgramMain, IsFormLoadedInBothModes)
{
    start();
    EXPECT_TRUE(program->state().IsFormLoaded(QStringLiteral(" calendarmonthextform "), true));
    EXPECT_TRUE(program->state().IsFormLoaded(QStringLiteral("CalendarMonthExtForm"), false));
    EXPECT_FALSE(program->NoMainFormLoaded());

    // A window only in the list, not among the flags, and the other way round.
    QWidget view;
    view.setObjectName(QStringLiteral("ViewForm"));
    EXPECT_TRUE(program->state().IsFormLoaded(QStringLiteral("ViewForm"), true));
    EXPECT_FALSE(program->state().IsFormLoaded(QStringLiteral("ViewForm"), false));
    program->state().setFormLoaded(QStringLiteral("AboutForm"), true);
    EXPECT_TRUE(program->state().IsFormLoaded(QStringLiteral("AboutForm"), false));
    EXPECT_FALSE(program->state().IsFormLoaded(QStringLiteral("AboutForm"), true));
    EXPECT_FALSE(program->state().IsFormLoaded(QString(), true));
}

TEST_F(ProgramMain, AnUnchangedFileIsWrittenWhole)
{
    start();
    const QByteArray atStart = readBytes(settingsPath());
    ASSERT_FALSE(atStart.isEmpty());
    program->state().settings().ColorScheme = QStringLiteral("Pink");
    mainWindow()->move(30, 45);
    program->CloseProgram();
    const QByteArray text = readBytes(settingsPath());
    EXPECT_TRUE(text.contains("\r\nColorScheme=Pink\r\n"));
    EXPECT_TRUE(text.contains("\r\nCalendarLeft=450\r\nCalendarTop=675\r\n"));
    EXPECT_EQ(text, program->settingsFile().fileContents());
}

TEST_F(ProgramMain, AFileChangedByOthersGetsOnlyThePosition)
{
    start();
    // Another copy or the user changed the file while this one ran.
    const QByteArray edited = "Language=Russian\r\nColorScheme=Green\r\nCalendarLeft=1\r\n"
                              "calendartop=2\r\nCalendarBorderWidth=7\r\n";
    writeBytes(settingsPath(), edited);
    program->state().settings().ColorScheme = QStringLiteral("Pink");
    mainWindow()->move(30, 45);
    program->CloseProgram();
    EXPECT_EQ(readBytes(settingsPath()),
              QByteArray("Language=Russian\r\nColorScheme=Green\r\nCalendarLeft=450\r\n"
                         "CalendarTop=675\r\nCalendarBorderWidth=7\r\n"));
}

TEST_F(ProgramMain, NothingIsSavedWhileTheSettingsWindowIsOpen)
{
    start();
    const QByteArray atStart = readBytes(settingsPath());
    auto *view = new QWidget;
    view->setObjectName(QStringLiteral("ViewForm"));
    view->show();
    program->state().settings().ColorScheme = QStringLiteral("Pink");
    mainWindow()->move(30, 45);
    program->CloseProgram();
    EXPECT_EQ(readBytes(settingsPath()), atStart);
}

TEST_F(ProgramMain, UnloadsTheWindowsInOrder)
{
    start();
    EXPECT_TRUE(ResourcesForm::find()
                && program->state().IsFormLoaded(QStringLiteral("RESOURCESFORM"), false));
    CloseRecorder recorder;
    mainWindow()->installEventFilter(&recorder);
    for (const char *name : { "TabAppForm", "ViewForm", "AboutForm", "ToolTipForm" }) {
        auto *w = new QWidget;
        w->setObjectName(QString::fromLatin1(name));
        w->installEventFilter(&recorder);
        w->show();
    }
    program->CloseProgram();
    EXPECT_EQ(recorder.closed,
              QStringList({ QStringLiteral("ToolTipForm"), QStringLiteral("AboutForm"),
                            QStringLiteral("ViewForm"), QStringLiteral("TabAppForm"),
                            QStringLiteral("CalendarMonthExtForm") }));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(program->NoMainFormLoaded());
    // The button images are released after the windows.
    EXPECT_FALSE(ResourcesForm::find()
                 || program->state().IsFormLoaded(QStringLiteral("RESOURCESFORM"), false));
}

namespace {

struct ReadsRow
{
    const char *name;
    std::function<void(const QString &path)> prepare;
    int reads;
};

class StartupReads : public ProgramMain, public ::testing::WithParamInterface<ReadsRow>
{ };

} // namespace

// A good file is read once; a missing or bad one is rewritten and read again; one that can
// never be written is tried four times, and the program still starts on its defaults.
TEST_P(StartupReads, ReadsAtMostFourTimes)
{
    GetParam().prepare(settingsPath());
    start();
    EXPECT_EQ(program->settingsReads(), GetParam().reads);
    ASSERT_NE(mainWindow(), nullptr);
    EXPECT_TRUE(mainWindow()->isVisible());
    EXPECT_EQ(program->state().settings().CalendarBorderWidth, 2);
}

INSTANTIATE_TEST_SUITE_P(
    Files, StartupReads,
    ::testing::Values(
        ReadsRow { "GoodFile", [](const QString &p) { writeBytes(p, "Language=English"); }, 1 },
        ReadsRow { "NoFile", [](const QString &) {}, 2 },
        ReadsRow { "Overflow", [](const QString &p) { writeBytes(p, "CalendarTop=1e999"); }, 2 },
        ReadsRow { "FolderInTheWay", [](const QString &p) { QDir().mkpath(p); }, 4 }),
    [](const ::testing::TestParamInfo<ReadsRow> &p) { return std::string(p.param.name); });

TEST_F(ProgramMain, TheFirstRunTakesTheLocalesLanguage)
{
    env["LANG"] = "ru_RU.UTF-8";
    start();
    const QByteArray text = readBytes(settingsPath());
    EXPECT_TRUE(text.contains("\r\nLanguage=Russian\r\n"));
    EXPECT_TRUE(text.contains("\r\nFirstWeekDay=Monday\r\n"));
    EXPECT_EQ(program->settingsReads(), 2);
    EXPECT_EQ(mainWindow()->windowTitle(), QStringLiteral("Календарь КЛВ Лайт"));
    EXPECT_EQ(program->state().SettingsChecksum, [&] {
        std::int32_t sum = 0;
        for (const char c : text)
            sum += static_cast<unsigned char>(c);
        return sum;
    }());
}
