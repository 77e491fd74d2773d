#include "tooltip/TipTiming.h"

#include "app/Settings.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace {

// A timer on the test's millisecond clock.
struct FakeTimer : TipTimer
{
    explicit FakeTimer(const long &clock)
        : now(clock)
    { }
    void setInterval(int ms) override { every = ms; }
    int interval() const override { return every; }
    void start() override { active = true, due = now + every; }
    void stop() override { active = false; }
    bool isActive() const override { return active; }
    void onTimeout(std::function<void()> t) override { tick = std::move(t); }

    const long &now;
    int every = 0;
    bool active = false;
    long due = 0;
    std::function<void()> tick;
};

struct Move
{
    long at;
    int x; // 0..99 asks for "A", 100..199 for "B", 200..299 for "A" again
    bool overWindow = true;
};

struct TimelineRow
{
    const char *name;
    std::vector<Move> moves;
    long until;
    const char *expected; // at its millisecond: +T a tooltip for T loaded, T shown, -T unloaded
};

// One window asking for tooltips every 200 ms, and the tooltip windows it loads.
class Timeline : public ::testing::TestWithParam<TimelineRow>
{
protected:
    void SetUp() override
    {
        // One tooltip window at a time: each load makes its timers anew on the same three.
        m_state.loadTip = [this] {
            m_tip.emplace(m_state, m_actuation, m_close, m_checkArea);
            m_tip->show = [this] { log(""); };
            m_tip->unload = [this] { m_state.closeTip(); };
            m_tip->pointerTest = [this] { return !m_over; };
            m_tip->load();
            log("+");
        };
        m_state.closeTip = [this] { // as the window does: its timers stop, it goes later
            if (m_actuation.active || m_close.active || m_checkArea.active)
                log("-");
            for (FakeTimer *t : { &m_actuation, &m_close, &m_checkArea })
                t->stop();
        };
        m_request.setInterval(TipRequester::RequestMs);
        m_request.onTimeout([this] {
            const TipRequester::Tick tick = m_requester.tick({ m_x, 0 }, m_over);
            if (tick == TipRequester::Tick::Stop)
                m_request.stop();
            const QString text = QChar(u'A' + (m_x / 100) % 2);
            if (tick == TipRequester::Tick::Moved)
                m_state.ShowTip(text, text);
        });
        m_request.start();
    }

    // Fires the due timers in time order.
    void runUntil(long until)
    {
        for (;;) {
            FakeTimer *next = nullptr;
            for (FakeTimer *t : { &m_request, &m_actuation, &m_close, &m_checkArea })
                if (t->active && t->due <= until && (!next || t->due < next->due))
                    next = t;
            if (!next)
                break;
            m_now = next->due;
            next->due += next->every;
            next->tick();
        }
        m_now = until;
    }

    void log(const char *what)
    {
        m_log << QString::number(m_now) + QLatin1StringView(what) + m_state.LastTipText;
    }

    long m_now = 0;
    Settings m_settings;
    ToolTipState m_state { m_settings };
    FakeTimer m_request { m_now }, m_actuation { m_now }, m_close { m_now }, m_checkArea { m_now };
    TipRequester m_requester { m_state };
    std::optional<ToolTipTimers> m_tip;
    QStringList m_log;
    int m_x = 50;
    bool m_over = true;
};

TEST_P(Timeline, ShowsAndClosesOnTime)
{
    for (const Move &move : GetParam().moves) {
        runUntil(move.at);
        m_x = move.x;
        m_over = move.overWindow;
        if (m_over && !m_request.isActive())
            m_request.start(); // the pointer coming over the window starts the requests
    }
    runUntil(GetParam().until);
    EXPECT_EQ(m_log.join(u' ').toStdString(), GetParam().expected);
}

// Shown 1 s after the request and closed on the ninth tick of its count-down; the same text is
// not shown again. Once the count-down has begun the next tooltip follows after 20 ms, unless
// the pointer rested 26 ticks (5.2 s). The pointer test closes a tooltip within 107 ms of the
// pointer leaving; the window then stops asking and forgets the text, so it shows again.
// clang-format off
INSTANTIATE_TEST_SUITE_P(Tooltips, Timeline, ::testing::Values(
    TimelineRow { "RestOnOneControl", {}, 30000, "200+A 1200A 10200-A" },
    TimelineRow { "SameTextOnTheNextControl", { { 3100, 250 } }, 30000, "200+A 1200A 10200-A" },
    TimelineRow { "StraightToTheNextControl", { { 3100, 150 } }, 13000,
                  "200+A 1200A 3200-A 3200+B 3220B 12220-B" },
    TimelineRow { "Rest25Ticks", { { 5300, 150 } }, 6000, "200+A 1200A 5400-A 5400+B 5420B" },
    TimelineRow { "Rest26Ticks", { { 5500, 150 } }, 7000, "200+A 1200A 5600-A 5600+B 6600B" },
    TimelineRow { "LeaveAndComeBack", { { 3100, 50, false }, { 4000, 50 } }, 5500,
                  "200+A 1200A 3196-A 4200+A 5200A" }),
    [](const auto &row) { return std::string(row.param.name); });
// clang-format on

} // namespace
