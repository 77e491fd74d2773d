#pragma once

#include "TipTimer.h"

#include <QPoint>
#include <QString>

#include <functional>

struct Settings;

// The tooltip state the whole program shares, and ShowTip, the one way to ask for a tooltip.
class ToolTipState
{
public:
    explicit ToolTipState(const Settings &settings)
        : m_settings(settings)
    { }

    // The text of the tooltip to show next, mark-up included.
    QString TipText;
    // The text asked for last: the same text is not shown twice in a row.
    QString LastTipText;
    // True while no tooltip counts down its life: the next one waits the full delay.
    bool TipClosed = true;
    // Puts the tooltip nearer the pointer; every new tooltip starts with it clear.
    bool TipNearPointer = false;

    // The program-wide test that keeps tooltips away (closing, busy, a button held).
    std::function<bool()> tipsBlocked;
    // Unloads the tooltip window, whether shown or still waiting.
    std::function<void()> closeTip;
    // Creates and loads a tooltip window for TipText.
    std::function<void()> loadTip;

    // Picks the text in the program's language; unless it is the one asked for last, closes any
    // tooltip and loads a new one.
    void ShowTip(const QString &english, const QString &russian);

private:
    const Settings &m_settings;
};

// The life of one tooltip window: the show delay, the count-down and the early close.
class ToolTipTimers
{
public:
    static constexpr int ActuationMs = 1000;
    static constexpr int QuickActuationMs = 20; // a tooltip was still up
    static constexpr int CloseMs = 1000;
    static constexpr int CloseTicks = 9;
    static constexpr int CheckAreaMs = 107;

    ToolTipTimers(ToolTipState &state, TipTimer &actuation, TipTimer &close, TipTimer &checkArea);

    // Places and shows the window above all others.
    std::function<void()> show;
    // Unloads the window.
    std::function<void()> unload;
    // The pointer test of the early close.
    std::function<bool()> pointerTest;

    // The window has laid out its text: the show delay starts.
    void load();
    int counter() const { return m_counter; }

private:
    void TimerActuationTimer();
    void TimerCloseTimer();
    void TimerCheckAreaFormTimer();

    ToolTipState &m_state;
    TipTimer &m_actuation;
    TipTimer &m_close;
    TipTimer &m_checkArea;
    int m_counter = 0;
};

// One window's requests: what each tick of its TimerToolTip does.
class TipRequester
{
public:
    static constexpr int RequestMs = 200;
    // 5.2 s at rest, and the next tooltip waits the full delay again.
    static constexpr int RestTicks = 26;

    enum class Tick {
        Stop, // the window may not show tooltips now: the timer stops
        Moved, // the pointer moved: the controls under it ask for their tooltips
        Rested,
    };

    explicit TipRequester(ToolTipState &state)
        : m_state(state)
    { }

    Tick tick(QPoint pointer, bool mayShow);
    int restCount() const { return m_rest; }

private:
    ToolTipState &m_state;
    QPoint m_pointer { -1, -1 };
    bool m_havePointer = false;
    int m_rest = 0;
};
