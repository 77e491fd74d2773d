#pragma once

#include "TipLayout.h"
#include "TipTimer.h"
#include "TipTiming.h"

#include <QImage>
#include <QPointer>
#include <QWidget>

class ProgramState;
class QTimer;
class ToolTips;

// The tooltip window: the text of ToolTipState::TipText in the program's mark-up, framed, shown
// near the pointer after its delay, above every window and without taking the focus.
class ToolTipForm : public QWidget
{
    Q_OBJECT

public:
    // Loads a tooltip for the shared TipText on behalf of `requester`, or turns it away (null)
    // while another tooltip is loaded or the program is closing or busy.
    static ToolTipForm *load(ToolTips &tips, ProgramState &program, QWidget *requester);
    ~ToolTipForm() override;

    // Hides the window now and deletes it soon, whether shown or still waiting.
    void unload();
    bool unloaded() const { return m_unloaded; }

    // The window's size as laid out, in twips.
    TipSize sizeTwips() const { return m_size; }
    const ToolTipTimers &timers() const { return m_timers; }

    QTimer *TimerActuation = nullptr;
    QTimer *TimerClose = nullptr;
    QTimer *TimerCheckAreaForm = nullptr;
    QTimer *TimerSetShadow = nullptr;

protected:
    void paintEvent(QPaintEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    ToolTipForm(ToolTips &tips, ProgramState &program, QWidget *requester);
    void layOut();
    // Places the window by the pointer and shows it above its shadow.
    void showByPointer();
    // The early close: the pointer is on the tooltip or has left the window that asked for it.
    bool pointerTest() const;

    ToolTips &m_tips;
    ProgramState &m_program;
    ToolTipState &m_state;
    QPointer<QWidget> m_requester;
    TipStyle m_style;
    TipSize m_size;
    int m_borderPen = 0;
    QImage m_surface;
    QtTipTimer m_actuation;
    QtTipTimer m_close;
    QtTipTimer m_checkArea;
    ToolTipTimers m_timers;
    bool m_unloaded = false;
};
