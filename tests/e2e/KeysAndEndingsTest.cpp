#include "E2eHarness.h"
#include "calendar/MainFormLayout.h"

#include <QFile>
#include <QThread>

#include <csignal>

using namespace e2e;

namespace {

// 1500 twips is 100 pixels on a 96-dpi screen.
const QByteArray Stored =
    "[Appearance]\r\nLanguage=English\r\nCalendarLeft=1500\r\nCalendarTop=1500\r\n";

class Calendar : public E2eTest
{
protected:
    bool moveTo150x90() { return xdotool({ "windowmove", "--sync", m_main, "150", "90" }); }
    static bool ended(QProcess &program, int waitMs = 10000)
    {
        return program.waitForFinished(waitMs) && program.exitStatus() == QProcess::NormalExit
            && program.exitCode() == 0;
    }
};

struct EndRow
{
    const char *name;
    const char *wm;
    const char *key; // xdotool key, or nullptr to send `signal`
    int signal = 0;
    bool minimised = false;
    bool firstRun = false;
    bool inAbout = false; // the key goes to the About window, opened with F1
};

class Endings : public Calendar, public ::testing::WithParamInterface<EndRow>
{ };

// Every way of ending a run, also from the About window, writes the whole record with where the
// window stood (also when it was minimised), in twips, and the program prints nothing. A first
// run has written its file already at start.
TEST_P(Endings, SaveThePositionAndPrintNothing)
{
    const EndRow &row = GetParam();
    QProcess &program = openCalendar(row.wm, row.firstRun ? QByteArray() : Stored);
    if (row.firstRun) {
        EXPECT_EQ(readSettings().count("\r\n"), 13) << "no file at start";
    }
    ASSERT_TRUE(moveTo150x90());
    QThread::msleep(200);
    if (row.minimised) {
        ASSERT_TRUE(xdotool({ "windowminimize", "--sync", m_main }));
        // The program learns of it from the window manager's state, a moment later.
        ASSERT_TRUE(waitFor(
            [&] { return xprop(m_main, "_NET_WM_STATE").contains(QStringLiteral("HIDDEN")); },
            3000));
        QThread::msleep(300);
    }
    if (row.inAbout) {
        ASSERT_TRUE(xdotool({ "key", "F1" }));
        const Args about = windows("About QLV Calendar Lite");
        ASSERT_EQ(about.size(), 1U);
        QString active;
        EXPECT_TRUE(waitFor(
            [&] {
                return run({ "xdotool", "getactivewindow" }, &active)
                    && active.toStdString() == about.front();
            },
            3000))
            << "the key would go to the calendar";
    }
    if (row.key) {
        ASSERT_TRUE(xdotool({ "key", row.key }));
    } else {
        ASSERT_EQ(::kill(pid_t(program.processId()), row.signal), 0);
    }
    EXPECT_TRUE(ended(program)) << program.exitCode();
    EXPECT_TRUE(readSettings().startsWith("Don't change this file by hand!"));
    EXPECT_EQ(setting("CalendarLeft="), QStringLiteral("2250"));
    EXPECT_EQ(setting("CalendarTop="), QStringLiteral("1350"));
    EXPECT_EQ(program.readAllStandardError(), QByteArray());
}

INSTANTIATE_TEST_SUITE_P(
    Ways, Endings,
    ::testing::Values(EndRow { "EscapeFirstRun", "openbox", "Escape", 0, false, true },
                      EndRow { "AltX", "", "alt+x" },
                      EndRow { "WindowManagerClose", "openbox", "alt+F4" },
                      EndRow { "Sigterm", "", nullptr, SIGTERM },
                      EndRow { "Sigint", "", nullptr, SIGINT },
                      EndRow { "Sighup", "", nullptr, SIGHUP },
                      EndRow { "SigtermWhileMinimised", "openbox", nullptr, SIGTERM, true },
                      EndRow { "AltQInTheAboutWindow", "openbox", "alt+q", 0, false, false, true }),
    rowName);

struct HeldRow
{
    const char *name;
    const char *key;
    size_t copies; // calendars the hold starts
    bool closes;
};

class HeldKeys : public Calendar, public ::testing::WithParamInterface<HeldRow>
{ };

} // namespace

// With X repeating the held key, a key-up command still fires once, on the real release.
TEST_P(HeldKeys, FireOnceOnTheRealRelease)
{
    const HeldRow &row = GetParam();
    QProcess &program = openCalendar("openbox", Stored);
    ASSERT_TRUE(run({ "xset", "r", "on" }));
    ASSERT_TRUE(xdotool({ "keydown", row.key }));
    QThread::msleep(2500);
    EXPECT_EQ(program.state(), QProcess::Running) << "closed while the key was held";
    EXPECT_EQ(windows("QLV Calendar Lite", 0).size(), 1U)
        << "a copy started while the key was held";
    ASSERT_TRUE(xdotool({ "keyup", row.key }));
    QThread::msleep(row.copies > 0 ? 6000 : 1500);
    EXPECT_EQ(adoptCopies(program.processId()).size(), row.copies);
    EXPECT_EQ(ended(program, 3000), row.closes);
}

INSTANTIATE_TEST_SUITE_P(Keys, HeldKeys,
                         ::testing::Values(HeldRow { "CtrlN", "ctrl+n", 1, false },
                                           HeldRow { "Escape", "Escape", 0, true }),
                         rowName);

// Esc that closes a dropped-down list, opened by a click or by F4, ends only the list; the
// next one closes the calendar.
TEST_F(Calendar, EscOnADroppedDownListClosesOnlyTheList)
{
    QProcess &program = openCalendar("openbox", Stored);
    ASSERT_TRUE(mouseTo(geometry(m_main).topLeft() + MainFormLayout::ListMonth.center()));
    for (const char *opener : { "click", "key" }) {
        ASSERT_TRUE(xdotool({ opener, opener == std::string("click") ? "1" : "F4" }));
        QThread::msleep(800);
        ASSERT_TRUE(xdotool({ "key", "Escape" }));
        EXPECT_FALSE(program.waitForFinished(600)) << "Esc closed the calendar after a " << opener;
    }
    ASSERT_TRUE(xdotool({ "key", "Escape" }));
    EXPECT_TRUE(ended(program));
}

// Alt+Q in the Settings window, opened with F9 and four settings changed by the keyboard alone
// (Tab to the first list, Down to the next entry, Enter to the next control, Right for the
// border), ends the program without saving anything. Its Esc and Ctrl+Enter are in the whole run.
TEST_F(Calendar, AltQInTheSettingsWindowQuitsSavingNothing)
{
    const QByteArray appearance = "[Appearance]\r\nLanguage=English\r\nFirstWeekDay=Sunday\r\n"
                                  "ColorScheme=Blue\r\nCalendarBorderWidth=2\r\n";
    QProcess &program = openCalendar("openbox", appearance);
    ASSERT_TRUE(xdotool({ "key", "F9" }));
    ASSERT_EQ(windows("  Calendar Settings  ").size(), 1U) << "F9 opened no Settings window";
    QThread::msleep(300);
    ASSERT_TRUE(xdotool({ "key", "--delay", "120", "Tab", "Down", "Return", "Down", "Return",
                          "Down", "Return", "Right", "alt+q" }));
    EXPECT_TRUE(ended(program));
    EXPECT_EQ(readSettings(), appearance);
}
