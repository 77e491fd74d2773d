#include "ShadowKeeper.h"

#include "DragMath.h"
#include "Shadow.h"
#include "WindowBehaviour.h"
#include "app/Settings.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>

ShadowKeeper::ShadowKeeper(WindowBehaviour &behaviour, QWidget *window, bool isMainWindow)
    : QObject(window)
    , m_behaviour(behaviour)
    , m_window(window)
    , m_isMainWindow(isMainWindow)
{
    setObjectName(QStringLiteral("ShadowKeeper"));
    TimerSetShadow = new QTimer(this);
    TimerSetShadow->setObjectName(QStringLiteral("TimerSetShadow"));
    TimerSetShadow->setInterval(FirstUpkeepMs);
    connect(TimerSetShadow, &QTimer::timeout, this, &ShadowKeeper::TimerSetShadowTimer);
    TimerSetShadow->start();
    window->installEventFilter(this);
}

ShadowKeeper::~ShadowKeeper()
{
    setShadowOn(false);
}

void ShadowKeeper::setShadowOn(bool on)
{
    if (on == !m_shadow.isNull())
        return;
    if (!on) {
        m_behaviour.shadowLoaded(false);
        delete m_shadow.data();
        return;
    }
    m_shadow = new Shadow(m_behaviour.shadowColor());
    m_behaviour.shadowLoaded(true);
    matchWindow();
    follow();
    if (m_window->isVisible() && !m_window->isMinimized())
        restack();
}

void ShadowKeeper::follow()
{
    if (!m_shadow)
        return;
    const QPoint window = m_window->pos() * TwipsPerPixel;
    const QPoint shadow = shadowTopLeftTwips(window, m_behaviour.ShadowOffset);
    m_shadow->setGeometry(nearestPixel(shadow.x()), nearestPixel(shadow.y()), m_window->width(),
                          m_window->height());
}

void ShadowKeeper::restack()
{
    if (!m_shadow)
        return;
    follow();
    PutAboveShadow(m_window, m_shadow);
}

void ShadowKeeper::matchWindow()
{
    // A topmost window needs a topmost shadow, or other windows would slide between the two.
    const bool topmost = m_window->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
    if (m_shadow && m_shadow->windowFlags().testFlag(Qt::WindowStaysOnTopHint) != topmost) {
        const bool visible = m_shadow->isVisible();
        m_shadow->setWindowFlag(Qt::WindowStaysOnTopHint, topmost);
        if (visible)
            m_shadow->show();
    }
}

void ShadowKeeper::TimerSetShadowTimer()
{
    if (TimerSetShadow->interval() != UpkeepMs)
        TimerSetShadow->setInterval(UpkeepMs);
    restack();
    if (!m_isMainWindow)
        m_behaviour.restackMainForm();
}

bool ShadowKeeper::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_window || !m_shadow)
        return false;
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
        follow();
        break;
    case QEvent::Show:
        // The shadow goes up first, so the window maps above it.
        matchWindow();
        follow();
        if (!m_window->isMinimized())
            m_shadow->show();
        break;
    case QEvent::Hide:
        m_shadow->hide();
        break;
    case QEvent::WindowActivate:
        // Activation usually comes with a raise by the window manager, which may follow it;
        // this also settles the stacking at start, once the window is mapped.
        restack();
        QTimer::singleShot(RaiseSettleMs, this, &ShadowKeeper::restack);
        break;
    case QEvent::WindowStateChange:
        if (m_window->isMinimized())
            m_shadow->hide();
        else if (m_window->isVisible())
            restack();
        break;
    default:
        break;
    }
    return false;
}
