#pragma once

#include "TipTexts.h"
#include "TipTiming.h"

#include <QObject>
#include <QPointer>

class CommonWindow;
class ProgramState;
class QWindow;
class TipRequests;
class ToolTipForm;

// The program's tooltips: the shared state, the one tooltip window, and the windows that ask
// for tooltips. A window attaches with one call, giving its table:
//     ToolTips::attach(*this, TipTexts::viewFormTips());
class ToolTips : public QObject
{
    Q_OBJECT

public:
    // The one instance of the run, kept by the program state and created on first use.
    static ToolTips &of(ProgramState &program);
    // Gives `window` tooltips for the controls of `table`: its TimerToolTip runs while the
    // pointer is over it, and every control's accessible description is its tooltip's plain
    // text in the language in force. Call once, after the controls exist.
    static TipRequests *attach(CommonWindow &window, TipTable table);

    ToolTipState &state() { return m_state; }
    // The loaded tooltip window, shown or waiting, or null.
    ToolTipForm *toolTip() const;
    // Closes any tooltip; the same text is still not asked for twice in a row.
    void hideToolTip();

    // Where the pointer was last seen on the screen, and whether it is over `window` now. Kept
    // from the windows' pointer events, so that no timer tick has to ask the display server.
    QPoint pointerPosition() const { return m_pointer; }
    bool pointerIsOver(const QWidget *window) const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    friend class TipRequests;
    explicit ToolTips(ProgramState &program);
    bool tipsBlocked() const;
    void requestFrom(QWidget *window, const QString &english, const QString &russian);

    ProgramState &m_program;
    ToolTipState m_state;
    QPointer<ToolTipForm> m_tip;
    QWidget *m_requester = nullptr; // the window that asked last; cleared when it goes
    QList<QPointer<TipRequests>> m_requests;
    QPoint m_pointer;
    QPointer<QWindow> m_pointerWindow;
};

// The requests of one window: each TimerToolTip tick tests the controls of its table under the
// pointer, in table order (the last hit wins).
class TipRequests : public QObject
{
    Q_OBJECT

public:
    TipRequests(ToolTips &tips, CommonWindow &window, TipTable table);
    ~TipRequests() override;

    void TimerToolTipTimer();
    // The pointer moved over the window: the requests start when tooltips may show.
    void pointerMoved();
    // Writes the accessible descriptions in the language in force.
    void refreshDescriptions();
    CommonWindow &window() const { return m_window; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool mayShowTips() const;
    QList<QWidget *> controlsOf(const TipRow &row) const;

    ToolTips &m_tips;
    CommonWindow &m_window;
    TipTable m_table;
    QtTipTimer m_timer;
    TipRequester m_requester;
    QString m_describedIn;
    bool m_described = false;
};
