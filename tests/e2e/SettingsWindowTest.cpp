#include "E2eHarness.h"

#include <QThread>

using namespace e2e;

namespace {

const QByteArray Stored = "[Appearance]\r\nLanguage=English\r\nFirstWeekDay=Sunday\r\n"
                          "ColorScheme=Blue\r\nCalendarPicture=Sky\r\nCalendarBorderWidth=2\r\n"
                          "CalendarLeft=1500\r\nCalendarTop=1500\r\n";
// What Ok writes after the keys below: Russian, Monday, Green (which drops the picture, not
// yet touched, to None) and the widest border; the position is the one read at start.
const QByteArray Saved = "Don't change this file by hand! Some incorrect changes may crash the "
                         "program.\r\n\r\n[Appearance]\r\n\r\nLanguage=Russian\r\n"
                         "ColorScheme=Green\r\nFirstWeekDay=Monday\r\nCalendarBorderWidth=3\r\n"
                         "CalendarPicture=None\r\nCalendarLeft=1500\r\nCalendarTop=1500\r\n"
                         "CalendarAlignToCenter=No\r\nCalendarTopmost=No\r\n";

struct EndRow
{
    const char *name;
    const char *key; // the last key, after the changes
    bool saves;
    bool quits;
};

class SettingsKeys : public E2eTest, public ::testing::WithParamInterface<EndRow>
{ };

} // namespace

// F9 opens the Settings window; the keyboard alone changes four settings (Tab to the first
// list, Down to the next entry, Enter to the next control, Right for the border).
TEST_P(SettingsKeys, SaveDiscardOrQuitTheWholeWay)
{
    const EndRow &row = GetParam();
    QProcess &program = openCalendar("openbox", Stored);
    ASSERT_TRUE(xdotool({ "key", "F9" }));
    ASSERT_EQ(windows("  Calendar Settings  ").size(), 1U) << "F9 opened no Settings window";
    QThread::msleep(300);
    ASSERT_TRUE(xdotool({ "key", "--delay", "120", "Tab", "Down", "Return", "Down", "Return",
                          "Down", "Return", "Right" }));
    QThread::msleep(300);
    EXPECT_EQ(readSettings(), Stored) << "a change was saved before Ok";
    ASSERT_TRUE(xdotool({ "key", row.key }));
    if (row.quits) {
        EXPECT_TRUE(program.waitForFinished(10000));
        EXPECT_EQ(program.exitCode(), 0);
    } else {
        EXPECT_TRUE(waitFor([&] { return windows("  Calendar Settings  ", 0).empty(); }, 5000));
        QThread::msleep(300);
        EXPECT_EQ(program.state(), QProcess::Running);
    }
    EXPECT_EQ(QString::fromLatin1(readSettings()), QString::fromLatin1(row.saves ? Saved : Stored));
}

INSTANTIATE_TEST_SUITE_P(Endings, SettingsKeys,
                         ::testing::Values(EndRow { "CtrlEnterSaves", "ctrl+Return", true, false },
                                           EndRow { "EscDiscards", "Escape", false, false },
                                           EndRow { "AltQSavesNothing", "alt+q", false, true }),
                         RowName());
