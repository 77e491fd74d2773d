#include "E2eHarness.h"

#include <QThread>

using namespace e2e;

using AboutWindow = E2eTest;

// F1 shows the About window beside the calendar, under openbox and a compositor as on a
// desktop: a second top-level window (and no third once one would have had time to map), a
// utility window transient for the calendar (so the program keeps one taskbar entry), with a
// shadow of its own beneath it.
TEST_F(AboutWindow, F1ShowsASecondWindowWithItsShadow)
{
    startCompositor();
    openCalendar("openbox",
                 "[Appearance]\r\nLanguage=English\r\nCalendarLeft=1500\r\nCalendarTop=1500\r\n");
    ASSERT_TRUE(xdotool({ "key", "F1" }));
    windows("About QLV Calendar Lite");
    QThread::msleep(600);
    const Args about = windows("About QLV Calendar Lite", 0);
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
