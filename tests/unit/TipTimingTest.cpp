#include "tooltip/TipTiming.h"

#include "app/Settings.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

// A timer on a millisecond clock that the test moves on; due timers fire in time order.
struct FakeTimer : TipTimer
{
    explicit FakeTimer(std::vector<FakeTimer *> &timers)
        : all(timers)
    {
        all.push_back(this);
    }
    ~FakeTimer() override { std::erase(all, this); }
    void setInterval(int ms) override { interval_ = ms; }
    int interval() const override { return interval_; }
    void start() override { active = true, due = *now + interval_; }
    void stop() override { active = false; }
    bool isActive() const override { return active; }
    void onTimeout(std::function<void()> t) override { tick = std::move(t); }

    std::vector<FakeTimer *> &all;
    inline static const long *now = nullptr;
    int interval_ = 0;
    bool active = false;
    long due = 0;
    std::function<void()> tick;
};

struct Tip
{
    Tip(ToolTipState &state, std::vector<FakeTimer *> &all)
        : actuation(all)
        , close(all)
        , checkArea(all)
        , timers(state, actuation, close, checkArea)
    { }
    FakeTimer actuation, close, checkArea;
    ToolTipTimers timers;
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
    const char *expected; // the loads, shows and unloads, at their milliseconds
};

// One window asking for tooltips every 200 ms, and the tooltip windows it loads.
class Timeline : public ::testing::TestWithParam<TimelineRow>
{
protected:
    void SetUp() override
    {
        FakeTimer::now = &m_now;
        m_state.loadTip = [this] {
            m_tip = std::make_unique<Tip>(m_state, m_timers);
            m_tip->timers.show = [this] { log("show"); };
            m_tip->timers.unload = [this] { m_state.closeTip(); };
            m_tip->timers.pointerTest = [this] { return !m_over; };
            m_tip->timers.load();
            log("load");
        };
        m_state.closeTip = [this] { // as the window does: its timers stop, it goes later
            if (!m_tip)
                return;
            log("unload");
            for (FakeTimer *t : { &m_tip->actuation, &m_tip->close, &m_tip->checkArea })
                t->stop();
            m_gone.push_back(std::move(m_tip));
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

    void runUntil(long until)
    {
        for (;;) {
            FakeTimer *next = nullptr;
            for (FakeTimer *t : m_timers) {
                if (t->active && t->due <= until && (!next || t->due < next->due))
                    next = t;
            }
            if (!next)
                break;
            m_now = next->due;
            next->due += next->interval_;
            next->tick();
        }
        m_now = until;
    }

    void log(const char *what)
    {
        m_log << QStringLiteral("%1 %2 %3")
                     .arg(m_now)
                     .arg(QLatin1StringView(what), m_state.LastTipText);
    }

    long m_now = 0;
    Settings m_settings;
    ToolTipState m_state { m_settings };
    std::vector<FakeTimer *> m_timers;
    FakeTimer m_request { m_timers };
    TipRequester m_requester { m_state };
    std::unique_ptr<Tip> m_tip;
    std::vector<std::unique_ptr<Tip>> m_gone;
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
    EXPECT_EQ(m_log.join(u", ").toStdString(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Tooltips, Timeline,
    ::testing::Values(
        // Shown 1 s after the request, closed on the ninth tick of its count-down, not again.
        TimelineRow { "RestOnOneControl", {}, 30000, "200 load A, 1200 show A, 10200 unload A" },
        TimelineRow { "SameTextOnTheNextControlShowsNothing",
                      { { 3100, 250 } },
                      30000,
                      "200 load A, 1200 show A, 10200 unload A" },
        // The count-down had begun: the next tooltip follows after 20 ms.
        TimelineRow { "StraightToTheNextControl",
                      { { 3100, 150 } },
                      13000,
                      "200 load A, 1200 show A, 3200 unload A, 3200 load B, 3220 show B, "
                      "12220 unload B" },
        TimelineRow { "RestJustUnderFiveSeconds",
                      { { 5300, 150 } },
                      6000,
                      "200 load A, 1200 show A, 5400 unload A, 5400 load B, 5420 show B" },
        // 26 ticks at rest (5.2 s) and the next tooltip waits the full second again.
        TimelineRow { "RestFiveSecondsAndMore",
                      { { 5500, 150 } },
                      7000,
                      "200 load A, 1200 show A, 5600 unload A, 5600 load B, 6600 show B" },
        // The pointer test closes the tooltip within 107 ms; the window stops asking and forgets
        // the text, so coming back shows it again.
        TimelineRow { "LeavingTheWindowAndComingBack",
                      { { 3100, 50, false }, { 4000, 50 } },
                      5500,
                      "200 load A, 1200 show A, 3196 unload A, 4200 load A, 5200 show A" }),
    [](const auto &row) { return std::string(row.param.name); });

} // namespace
