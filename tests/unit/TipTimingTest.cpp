#include "tooltip/TipTiming.h"

#include "app/Settings.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

// Timers on a clock of milliseconds that the test moves on; due timers fire in time order.
class FakeTimers
{
public:
    class Timer : public TipTimer
    {
    public:
        explicit Timer(FakeTimers &clock)
            : m_clock(clock)
        {
            m_clock.m_timers.push_back(this);
        }
        ~Timer() override { std::erase(m_clock.m_timers, this); }
        void setInterval(int ms) override { m_ms = ms; }
        int interval() const override { return m_ms; }
        void start() override
        {
            m_active = true;
            m_due = m_clock.now + m_ms;
        }
        void stop() override { m_active = false; }
        bool isActive() const override { return m_active; }
        void onTimeout(std::function<void()> tick) override { m_tick = std::move(tick); }

    private:
        friend class FakeTimers;
        FakeTimers &m_clock;
        int m_ms = 0;
        bool m_active = false;
        long m_due = 0;
        std::function<void()> m_tick;
    };

    void runUntil(long until)
    {
        for (;;) {
            Timer *next = nullptr;
            for (Timer *t : m_timers) {
                if (t->m_active && t->m_due <= until && (!next || t->m_due < next->m_due))
                    next = t;
            }
            if (!next)
                break;
            now = next->m_due;
            next->m_due += next->m_ms;
            next->m_tick();
        }
        now = until;
    }

    long now = 0;

private:
    std::vector<Timer *> m_timers;
};

struct Tip
{
    explicit Tip(ToolTipState &state, FakeTimers &clock)
        : actuation(clock)
        , close(clock)
        , checkArea(clock)
        , timers(state, actuation, close, checkArea)
    { }
    FakeTimers::Timer actuation, close, checkArea;
    ToolTipTimers timers;
};

struct Move
{
    long at;
    int x; // 0..99 shows "A", 100..199 "B", 200..299 "A" again, further out nothing
    bool overWindow = true;
};

struct TimelineRow
{
    const char *name;
    std::vector<Move> moves;
    long until;
    std::vector<std::string> expected;
};

// One window asking for tooltips every 200 ms, and the tooltip windows it loads, on fake time.
class Timeline : public ::testing::TestWithParam<TimelineRow>
{
protected:
    void SetUp() override
    {
        m_state.loadTip = [this] {
            m_tip = std::make_unique<Tip>(m_state, m_clock);
            m_tip->timers.show = [this] { log("show"); };
            m_tip->timers.unload = [this] { closeTip(); };
            m_tip->timers.pointerTest = [this] { return !m_over; };
            m_tip->timers.load();
            log("load");
        };
        m_state.closeTip = [this] { closeTip(); };
        m_request.setInterval(TipRequester::RequestMs);
        m_request.onTimeout([this] { requestTick(); });
        m_request.start();
    }

    void closeTip()
    {
        if (!m_tip)
            return;
        log("unload");
        m_tip->timers.unload = nullptr; // ends after this tick
        m_gone.push_back(std::move(m_tip));
    }

    void requestTick()
    {
        const TipRequester::Tick tick = m_requester.tick({ m_x, 0 }, m_over);
        if (tick == TipRequester::Tick::Stop)
            m_request.stop();
        if (tick == TipRequester::Tick::Moved && m_x < 300) {
            const QString text = (m_x / 100) % 2 == 0 ? QStringLiteral("A") : QStringLiteral("B");
            m_state.ShowTip(text, text + QStringLiteral("-ru"));
        }
    }

    void log(const char *what)
    {
        m_log.push_back(std::to_string(m_clock.now) + ' ' + what + ' '
                        + m_state.LastTipText.toStdString());
    }

    Settings m_settings;
    ToolTipState m_state { m_settings };
    FakeTimers m_clock;
    FakeTimers::Timer m_request { m_clock };
    TipRequester m_requester { m_state };
    std::unique_ptr<Tip> m_tip;
    std::vector<std::unique_ptr<Tip>> m_gone;
    std::vector<std::string> m_log;
    int m_x = 50;
    bool m_over = true;

public:
    void run(const TimelineRow &row)
    {
        for (const Move &move : row.moves) {
            m_clock.runUntil(move.at);
            m_x = move.x;
            m_over = move.overWindow;
            // Coming over the window starts the requests again.
            if (m_over && !m_request.isActive())
                m_request.start();
        }
        m_clock.runUntil(row.until);
    }
};

TEST_P(Timeline, ShowsAndClosesOnTime)
{
    run(GetParam());
    EXPECT_EQ(m_log, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Tooltips, Timeline,
    ::testing::Values(
        // Shown 1 s after the request, closed on the ninth tick of its count-down, not again.
        TimelineRow {
            "RestOnOneControl", {}, 30000, { "200 load A", "1200 show A", "10200 unload A" } },
        TimelineRow { "SameTextOnTheNextControlShowsNothing",
                      { { 3100, 250 } },
                      30000,
                      { "200 load A", "1200 show A", "10200 unload A" } },
        // The count-down had begun: the next tooltip follows after 20 ms.
        TimelineRow { "StraightToTheNextControl",
                      { { 3100, 150 } },
                      13000,
                      { "200 load A", "1200 show A", "3200 unload A", "3200 load B", "3220 show B",
                        "12220 unload B" } },
        // Before the first tick of the count-down no tooltip counts as up yet.
        TimelineRow {
            "NextWithinTheFirstSecondOfTheTooltip",
            { { 1500, 150 } },
            3000,
            { "200 load A", "1200 show A", "1600 unload A", "1600 load B", "2600 show B" } },
        TimelineRow {
            "RestJustUnderFiveSeconds",
            { { 5300, 150 } },
            6000,
            { "200 load A", "1200 show A", "5400 unload A", "5400 load B", "5420 show B" } },
        // 26 ticks at rest (5.2 s) and the next tooltip waits the full second again.
        TimelineRow {
            "RestFiveSecondsAndMore",
            { { 5500, 150 } },
            7000,
            { "200 load A", "1200 show A", "5600 unload A", "5600 load B", "6600 show B" } },
        // The tooltip's pointer test closes it within 107 ms; the window stops asking and
        // forgets the text, so coming back shows it again.
        TimelineRow {
            "LeavingTheWindowAndComingBack",
            { { 3100, 50, false }, { 4000, 50 } },
            5500,
            { "200 load A", "1200 show A", "3196 unload A", "4200 load A", "5200 show A" } }),
    [](const auto &row) { return std::string(row.param.name); });

TEST(ShowTip, PicksTheLanguageAndHonoursTheBlock)
{
    Settings settings;
    settings.Language = QStringLiteral("Russian");
    ToolTipState state(settings);
    int loads = 0;
    bool blocked = true;
    state.loadTip = [&] { ++loads; };
    state.tipsBlocked = [&] { return blocked; };
    state.TipNearPointer = true;
    state.ShowTip(QStringLiteral("en"), QStringLiteral("ru"));
    EXPECT_EQ(loads, 0);
    blocked = false;
    state.ShowTip(QStringLiteral("en"), QStringLiteral("ru"));
    EXPECT_EQ(loads, 1);
    EXPECT_EQ(state.TipText, QStringLiteral("ru"));
    EXPECT_FALSE(state.TipNearPointer);
}

} // namespace
