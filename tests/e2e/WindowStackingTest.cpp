#include "E2eHarness.h"
#include "calendar/MainFormLayout.h"

#include <QThread>

using namespace e2e;

namespace {

class Desktop : public E2eTest, public ::testing::WithParamInterface<const char *>
{
protected:
    // The calendar under the row's window manager, and another program's window on top of it.
    void open(const QByteArray &settings, QPoint otherAt = {})
    {
        openCalendar(GetParam(),
                     "CalendarLeft=1500\r\nCalendarTop=1500\r\nLanguage=English\r\n" + settings);
        calendar = geometry(m_main);
        const QPoint at = calendar.topLeft() + otherAt;
        // Titled so that no message of the window manager's own (fluxbox greets a new user
        // with an xmessage) is taken for it.
        start({ "xmessage", "-title", "Cover", "-geometry",
                "300x200+" + std::to_string(at.x()) + '+' + std::to_string(at.y()), "cover" });
        other = windows("Cover").at(0);
        ASSERT_TRUE(xdotool({ "windowactivate", "--sync", other }));
        QThread::msleep(300);
    }
    std::string other;
    QRect calendar;
};

// Under a window manager and a compositor the translucent shadow stays out of every window list,
// and once the calendar is raised over a window that covered it, its shadow is back directly
// beneath it (so above that window) within one upkeep interval.
TEST_P(Desktop, ShadowIsBackBeneathWithinOneIntervalOfARaise)
{
    startCompositor();
    open({}, { 300, 200 });
    const std::string shadow = windows("Shadow").at(0);
    const auto beneath = [&] { return stackIndex(shadow) == stackIndex(m_main) - 1; };
    EXPECT_EQ(geometry(shadow), calendar.translated(4, 4));
    EXPECT_FALSE(xprop({}, "_NET_CLIENT_LIST").contains(QString::number(std::stoul(shadow), 16)));
    // 180 of 255, as the 32-bit fraction X keeps.
    EXPECT_NEAR(xprop(shadow, "_NET_WM_WINDOW_OPACITY").section(QLatin1Char('='), 1).toDouble(),
                180.0 / 255 * 4294967295.0, 2.0);
    ASSERT_GT(stackIndex(other), stackIndex(m_main)) << "the other window is not on top";

    ASSERT_TRUE(mouseTo(calendar.topLeft() + MainFormLayout::LabelActDate.center()));
    ASSERT_TRUE(xdotool({ "click", "1" }));
    const qint64 took =
        msUntil([&] { return stackIndex(m_main) > stackIndex(other) && beneath(); }, 4000);
    RecordProperty("back_beneath_ms", int(took));
    EXPECT_TRUE(took >= 0 && took <= 1610) << took << " ms";
    QThread::msleep(1700);
    EXPECT_TRUE(beneath()) << "it did not stay there";
}

// The topmost setting read at start keeps the calendar above a window activated later.
TEST_P(Desktop, TopmostAtStartKeepsTheCalendarAbove)
{
    open("CalendarTopmost=Yes\r\n");
    EXPECT_GT(stackIndex(m_main), stackIndex(other));
}

INSTANTIATE_TEST_SUITE_P(WindowManagers, Desktop, ::testing::Values("openbox", "icewm", "fluxbox"));

struct DragRow
{
    const char *name;
    const char *wm;
    QRect area; // where the button goes down
};

class LabelDrag : public E2eTest, public ::testing::WithParamInterface<DragRow>
{ };

} // namespace

// The title and the panel's labels drag the window by exactly the pointer's way, with or
// without a window manager.
TEST_P(LabelDrag, MovesTheWindowByThePointersDelta)
{
    openCalendar(GetParam().wm, "CalendarLeft=1500\r\nCalendarTop=1500\r\n");
    const QRect before = geometry(m_main);
    const QPoint grab = before.topLeft() + GetParam().area.center();
    for (int i = -1; i <= 8; ++i) {
        ASSERT_TRUE(
            mouseTo(grab + QPoint(std::min(i, 0), 0) + QPoint(-70, 45) * std::max(i, 0) / 8));
        if (i == 0) {
            ASSERT_TRUE(xdotool({ "mousedown", "1" }));
        }
    }
    ASSERT_TRUE(xdotool({ "mouseup", "1" }));
    QThread::msleep(200);
    EXPECT_EQ(geometry(m_main).topLeft(), before.topLeft() + QPoint(-70, 45));
}

INSTANTIATE_TEST_SUITE_P(
    Labels, LabelDrag,
    ::testing::Values(DragRow { "TitleBare", "", MainFormLayout::LabelActDate },
                      DragRow { "PanelValueBare", "", MainFormLayout::LabelTodayVal },
                      DragRow { "TitleOpenbox", "openbox", MainFormLayout::LabelActDate },
                      DragRow { "PanelValueOpenbox", "openbox", MainFormLayout::LabelTodayVal },
                      DragRow { "TitleIcewm", "icewm", MainFormLayout::LabelActDate },
                      DragRow { "TitleFluxbox", "fluxbox", MainFormLayout::LabelActDate }),
    rowName);

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
