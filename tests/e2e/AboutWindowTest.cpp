#include "E2eHarness.h"

#include <QThread>

using namespace e2e;

namespace {

class AboutWindow : public E2eTest
{
protected:
    // The calendar under openbox and a compositor, as on a desktop, with the focus.
    QProcess &launch()
    {
        startCompositor();
        return openCalendar(
            "openbox",
            "[Appearance]\r\nLanguage=English\r\nCalendarLeft=1500\r\nCalendarTop=1500\r\n");
    }
    // F1, then the About windows shown once a second one would have had time to map.
    Args pressF1()
    {
        EXPECT_TRUE(xdotool({ "key", "F1" }));
        windows("About QLV Calendar Lite");
        QThread::msleep(600);
        return windows("About QLV Calendar Lite", 0);
    }
};

} // namespace

// F1 shows the About window beside the calendar: a second top-level window, a utility window
// transient for the calendar (so the program keeps one taskbar entry), with a shadow of its own
// beneath it.
TEST_F(AboutWindow, F1ShowsASecondWindowWithItsShadow)
{
    launch();
    const Args about = pressF1();
    ASSERT_EQ(about.size(), 1U);
    const QRect calendar = geometry(m_main);
    const QRect box = geometry(about.front());
    EXPECT_GT(box.left(), calendar.right());
    EXPECT_EQ(box.top(), calendar.top());
    EXPECT_TRUE(
        xprop(about.front(), "WM_TRANSIENT_FOR").endsWith(QString::number(std::stoul(m_main), 16)));
    EXPECT_TRUE(xprop(about.front(), "_NET_WM_WINDOW_TYPE").contains(u"_TYPE_UTILITY"));

    Args shadows = windows("Shadow");
    ASSERT_EQ(shadows.size(), 2U);
    if (geometry(shadows.front()) != box.translated(4, 4))
        std::swap(shadows.front(), shadows.back());
    EXPECT_EQ(geometry(shadows.front()), box.translated(4, 4));
    EXPECT_TRUE(
        waitFor([&] { return stackIndex(shadows.front()) == stackIndex(about.front()) - 1; }, 1700))
        << "the shadow is not beneath its window";
}

// Alt+Q in the About window ends the program, which saves as it does from the calendar: the
// whole record with the window's new place, and nothing printed.
TEST_F(AboutWindow, AltQInItSavesAsFromTheCalendar)
{
    QProcess &program = launch();
    ASSERT_TRUE(xdotool({ "windowmove", "--sync", m_main, "150", "90" }));
    const Args about = pressF1();
    ASSERT_EQ(about.size(), 1U);
    QString active;
    EXPECT_TRUE(run({ "xdotool", "getactivewindow" }, &active));
    EXPECT_EQ(active.toStdString(), about.front()) << "Alt+Q would go to the calendar";
    ASSERT_TRUE(xdotool({ "key", "alt+q" }));
    EXPECT_TRUE(program.waitForFinished(10000) && program.exitStatus() == QProcess::NormalExit
                && program.exitCode() == 0);
    EXPECT_EQ(program.readAllStandardError(), QByteArray());
    EXPECT_TRUE(readSettings().startsWith("Don't change this file by hand!"));
    EXPECT_EQ(setting("CalendarLeft="), QStringLiteral("2250"));
    EXPECT_EQ(setting("CalendarTop="), QStringLiteral("1350"));
}
