#include "WindowGuard.h"

#include "WindowBehaviour.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

WindowGuard::WindowGuard(WindowBehaviour &behaviour, QWidget *window)
    : QObject(window)
    , m_behaviour(behaviour)
    , m_window(window)
{
    setObjectName(QStringLiteral("WindowGuard"));
    TimerEnableForm = new QTimer(this);
    TimerEnableForm->setObjectName(QStringLiteral("TimerEnableForm"));
    TimerEnableForm->setInterval(GuardMs);
    connect(TimerEnableForm, &QTimer::timeout, this, &WindowGuard::TimerEnableFormTimer);

    TimerKeyUp = new QTimer(this);
    TimerKeyUp->setObjectName(QStringLiteral("TimerKeyUp"));
    TimerKeyUp->setInterval(GuardMs);
    connect(TimerKeyUp, &QTimer::timeout, this, &WindowGuard::TimerKeyUpTimer);

    // Key presses go to the focused control, so watch them on their way there.
    qApp->installEventFilter(this);
}

void WindowGuard::disableForAWhile()
{
    m_window->setEnabled(false);
    TimerEnableForm->start();
}

void WindowGuard::keyDown()
{
    TimerKeyUp->stop();
    TimerKeyUp->start();
}

void WindowGuard::TimerEnableFormTimer()
{
    TimerEnableForm->stop();
    m_window->setEnabled(true);
}

void WindowGuard::TimerKeyUpTimer()
{
    TimerKeyUp->stop();
    m_behaviour.drag().MoveLocked = false;
    Q_EMIT keyUpTimedOut();
}

bool WindowGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    // Repeats count too: a key held down is not a key whose release went missing.
    if (static_cast<QWidget *>(watched)->window() == m_window)
        keyDown();
    return false;
}
