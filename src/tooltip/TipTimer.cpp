#include "TipTimer.h"

#include <QTimer>

void QtTipTimer::setInterval(int ms)
{
    m_timer->setInterval(ms);
}

int QtTipTimer::interval() const
{
    return m_timer->interval();
}

void QtTipTimer::start()
{
    m_timer->start();
}

void QtTipTimer::stop()
{
    m_timer->stop();
}

bool QtTipTimer::isActive() const
{
    return m_timer->isActive();
}

void QtTipTimer::onTimeout(std::function<void()> tick)
{
    QObject::connect(m_timer, &QTimer::timeout, m_timer, std::move(tick));
}
