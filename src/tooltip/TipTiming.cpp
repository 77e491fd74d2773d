#include "TipTiming.h"

#include "app/Settings.h"

void ToolTipState::ShowTip(const QString &english, const QString &russian)
{
    if (tipsBlocked && tipsBlocked())
        return;
    TipText = m_settings.Language == QStringLiteral("Russian") ? russian : english;
    if (TipText == LastTipText)
        return;
    if (closeTip)
        closeTip();
    TipNearPointer = false;
    LastTipText = TipText;
    if (loadTip)
        loadTip();
}

ToolTipTimers::ToolTipTimers(ToolTipState &state, TipTimer &actuation, TipTimer &close,
                             TipTimer &checkArea)
    : m_state(state)
    , m_actuation(actuation)
    , m_close(close)
    , m_checkArea(checkArea)
{
    m_actuation.onTimeout([this] { TimerActuationTimer(); });
    m_close.setInterval(CloseMs);
    m_close.onTimeout([this] { TimerCloseTimer(); });
    m_checkArea.setInterval(CheckAreaMs);
    m_checkArea.onTimeout([this] { TimerCheckAreaFormTimer(); });
}

void ToolTipTimers::load()
{
    m_actuation.setInterval(m_state.TipClosed ? ActuationMs : QuickActuationMs);
    m_actuation.start();
    m_checkArea.start();
}

void ToolTipTimers::TimerActuationTimer()
{
    m_actuation.stop();
    if (show)
        show();
    m_close.start();
}

void ToolTipTimers::TimerCloseTimer()
{
    if (m_counter == 0) {
        m_state.TipClosed = false;
        m_counter = CloseTicks;
    }
    if (m_counter < 2) {
        m_close.stop();
        m_counter = 0;
        m_state.TipClosed = true;
        if (unload)
            unload();
        return;
    }
    --m_counter;
}

void ToolTipTimers::TimerCheckAreaFormTimer()
{
    if (pointerTest && pointerTest()) {
        m_state.TipClosed = true;
        if (unload)
            unload();
    }
}

TipRequester::Tick TipRequester::tick(QPoint pointer, bool mayShow)
{
    if (!mayShow) {
        m_state.LastTipText.clear();
        // When the timer starts again, the controls under the pointer are tested at once.
        m_havePointer = false;
        return Tick::Stop;
    }
    if (!m_havePointer || pointer != m_pointer) {
        m_havePointer = true;
        m_pointer = pointer;
        m_rest = 0;
        return Tick::Moved;
    }
    if (++m_rest >= RestTicks) {
        m_rest = 0;
        m_state.TipClosed = true;
    }
    return Tick::Rested;
}
