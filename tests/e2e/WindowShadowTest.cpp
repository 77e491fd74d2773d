#include "E2eHarness.h"

#include <algorithm>
#include <sstream>
#include <thread>

using namespace e2e;

namespace {

struct Geometry
{
    long id = 0;
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

constexpr const char *MainTitle = "QLV Calendar Lite";

class WindowShadowE2e : public E2eTest, public ::testing::WithParamInterface<bool>
{
protected:
    Environment xEnv() const { return { { "PATH", "/usr/bin:/bin" }, { "DISPLAY", display() } }; }

    // Starts the compositing manager that makes translucent windows possible.
    void startCompositor()
    {
        m_compositor = ChildProcess::start({ "xcompmgr", "-n" }, xEnv());
        ASSERT_TRUE(m_compositor);
        // It takes the _NET_WM_CM_S0 selection as one of its first acts.
        std::this_thread::sleep_for(700ms);
        ASSERT_TRUE(m_compositor->running());
    }

    void TearDown() override
    {
        if (m_compositor)
            m_compositor->terminate();
        E2eTest::TearDown();
    }

    // The first visible window whose title is exactly `title`, or "".
    std::string findWindow(const std::string &title, std::chrono::milliseconds timeout = 10s)
    {
        const auto deadline = std::chrono::steady_clock::now() + timeout;
        do {
            std::string out;
            if (xdotool({ "search", "--onlyvisible", "--name", "^" + title + "$" }, &out)
                && !out.empty()) {
                return out.substr(0, out.find('\n'));
            }
            std::this_thread::sleep_for(100ms);
        } while (std::chrono::steady_clock::now() < deadline);
        return {};
    }

    std::optional<Geometry> geometry(const std::string &window)
    {
        std::string out;
        if (!xdotool({ "getwindowgeometry", "--shell", window }, &out))
            return std::nullopt;
        Geometry g;
        g.id = std::stol(window);
        std::istringstream lines(out);
        std::string line;
        while (std::getline(lines, line)) {
            const auto eq = line.find('=');
            if (eq == std::string::npos)
                continue;
            const std::string key = line.substr(0, eq);
            const int value = std::stoi(line.substr(eq + 1));
            if (key == "X")
                g.x = value;
            else if (key == "Y")
                g.y = value;
            else if (key == "WIDTH")
                g.width = value;
            else if (key == "HEIGHT")
                g.height = value;
        }
        return g;
    }

    std::string xprop(const std::string &window, const std::string &property)
    {
        return runCommand({ "xprop", "-id", window, property }, xEnv()).output;
    }

    // The root's children, topmost first (no window manager: our windows are its children).
    std::vector<long> stackingTopFirst()
    {
        const CommandResult r = runCommand({ "xwininfo", "-root", "-children" }, xEnv());
        std::vector<long> ids;
        std::istringstream lines(r.output);
        std::string line;
        while (std::getline(lines, line)) {
            const auto at = line.find("0x");
            if (at == std::string::npos || line.find("children") != std::string::npos)
                continue;
            ids.push_back(std::stol(line.substr(at), nullptr, 16));
        }
        return ids;
    }

    bool shadowBeneath(const std::string &main, const std::string &shadow)
    {
        const auto order = stackingTopFirst();
        const auto m = std::find(order.begin(), order.end(), std::stol(main));
        const auto s = std::find(order.begin(), order.end(), std::stol(shadow));
        return m != order.end() && s != order.end() && m < s;
    }

    // Presses on the window's left border strip (its drag frame) and drags by (dx, dy) in small
    // steps, as a hand would.
    void drag(const Geometry &from, int dx, int dy)
    {
        const int x = from.x + 6;
        const int y = from.y + from.height / 2;
        ASSERT_TRUE(xdotool({ "mousemove", "--sync", std::to_string(x), std::to_string(y) }));
        ASSERT_TRUE(xdotool({ "mousemove", "--sync", std::to_string(x + 1), std::to_string(y) }));
        ASSERT_TRUE(xdotool({ "mousedown", "1" }));
        constexpr int Steps = 8;
        for (int i = 1; i <= Steps; ++i) {
            ASSERT_TRUE(xdotool({ "mousemove", "--sync", std::to_string(x + 1 + dx * i / Steps),
                                  std::to_string(y + dy * i / Steps) }));
        }
        ASSERT_TRUE(xdotool({ "mouseup", "1" }));
    }

    std::unique_ptr<ChildProcess> m_compositor;
};

using DragE2e = WindowShadowE2e;

} // namespace

TEST_F(WindowShadowE2e, ShadowLiesBeneathFollowsADragAndComesBackWhenCovered)
{
    startCompositor();
    startProgram();
    const std::string main = findWindow(MainTitle);
    ASSERT_FALSE(main.empty()) << "no Main window";
    const std::string shadow = findWindow("Shadow");
    ASSERT_FALSE(shadow.empty()) << "no shadow window with a compositor running";

    EXPECT_NE(xprop(main, "WM_CLASS").find("\"qlvcallt\""), std::string::npos);
    // The program has one taskbar entry: the Main window's.
    EXPECT_NE(xprop(shadow, "_NET_WM_STATE").find("_NET_WM_STATE_SKIP_TASKBAR"), std::string::npos);
    EXPECT_EQ(xprop(main, "_NET_WM_STATE").find("_NET_WM_STATE_SKIP_TASKBAR"), std::string::npos);
    // 180 of 255, as the 32-bit fraction X keeps.
    const std::string opacity = xprop(shadow, "_NET_WM_WINDOW_OPACITY");
    const auto eq = opacity.find("= ");
    ASSERT_NE(eq, std::string::npos) << opacity;
    const double expected = 180.0 / 255.0 * 4294967295.0;
    EXPECT_NEAR(std::stod(opacity.substr(eq + 2)), expected, 2.0);

    auto m = geometry(main);
    auto s = geometry(shadow);
    ASSERT_TRUE(m && s);
    EXPECT_EQ(s->x, m->x + 4);
    EXPECT_EQ(s->y, m->y + 4);
    EXPECT_EQ(s->width, m->width);
    EXPECT_EQ(s->height, m->height);
    EXPECT_TRUE(shadowBeneath(main, shadow));

    drag(*m, 60, 45);
    const auto moved = geometry(main);
    ASSERT_TRUE(moved);
    EXPECT_EQ(moved->x, m->x + 60);
    EXPECT_EQ(moved->y, m->y + 45);
    std::this_thread::sleep_for(200ms);
    s = geometry(shadow);
    ASSERT_TRUE(s);
    EXPECT_EQ(s->x, moved->x + 4);
    EXPECT_EQ(s->y, moved->y + 4);
    EXPECT_TRUE(shadowBeneath(main, shadow));

    // Another client puts the shadow on top; the upkeep timer puts it back within one interval.
    std::this_thread::sleep_for(2600ms);
    ASSERT_TRUE(xdotool({ "windowraise", shadow }));
    const auto raised = std::chrono::steady_clock::now();
    ASSERT_FALSE(shadowBeneath(main, shadow));
    while (!shadowBeneath(main, shadow) && std::chrono::steady_clock::now() - raised < 4s)
        std::this_thread::sleep_for(50ms);
    const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now() - raised);
    RecordProperty("restack_ms", std::to_string(took.count()));
    EXPECT_TRUE(shadowBeneath(main, shadow));
    EXPECT_LE(took.count(), 1610 + 400);
}

TEST_F(WindowShadowE2e, NoCompositorMeansNoShadowWindow)
{
    startProgram();
    ASSERT_FALSE(findWindow(MainTitle).empty());
    // Past the first upkeep tick, which would show a shadow if there were one.
    std::this_thread::sleep_for(2800ms);
    EXPECT_EQ(findWindow("Shadow", 200ms), "");
    std::string out;
    xdotool({ "search", "--name", "^Shadow$" }, &out);
    EXPECT_EQ(out, "");
}

TEST_P(DragE2e, DraggedPositionIsSavedInTwipsOnAltQ)
{
    if (GetParam())
        startCompositor();
    ChildProcess &program = startProgram();
    const std::string main = findWindow(MainTitle);
    ASSERT_FALSE(main.empty());
    const auto start = geometry(main);
    ASSERT_TRUE(start);
    drag(*start, -70, 33);
    const auto moved = geometry(main);
    ASSERT_TRUE(moved);
    ASSERT_EQ(moved->x, start->x - 70);
    ASSERT_EQ(moved->y, start->y + 33);

    ASSERT_TRUE(sendKeys(main, "alt+q"));
    ASSERT_TRUE(program.waitForExit(10s).has_value());
    const auto text = readSettings();
    ASSERT_TRUE(text);
    EXPECT_EQ(settingValue(*text, "CalendarLeft="), std::to_string(moved->x * 15));
    EXPECT_EQ(settingValue(*text, "CalendarTop="), std::to_string(moved->y * 15));
}

INSTANTIATE_TEST_SUITE_P(Compositor, DragE2e, ::testing::Bool(), [](const auto &param) {
    return std::string(param.param ? "WithCompositor" : "WithoutCompositor");
});
