#pragma once

#include <QObject>

class QTimer;
class QWidget;
class WindowBehaviour;

// A window's two guard timers. TimerEnableForm gives the window back its input a while after a
// guarded action took it away; TimerKeyUp ends a key-down state whose key release never came,
// and lifts the drag lock with it.
class WindowGuard : public QObject
{
    Q_OBJECT

public:
    static constexpr int GuardMs = 1500;

    WindowGuard(WindowBehaviour &behaviour, QWidget *window);

    // Takes the window's input away until TimerEnableForm ticks.
    void disableForAWhile();
    // A key went down in the window: TimerKeyUp starts again from zero.
    void keyDown();

    QTimer *TimerEnableForm = nullptr;
    QTimer *TimerKeyUp = nullptr;

Q_SIGNALS:
    // TimerKeyUp ticked: the window forgets the key it thought was down.
    void keyUpTimedOut();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void TimerEnableFormTimer();
    void TimerKeyUpTimer();

    WindowBehaviour &m_behaviour;
    QWidget *m_window;
};
