#pragma once

#include <functional>

class QTimer;

// A window timer as the tooltip rules see it, so that tests can run them on a clock of their own.
class TipTimer
{
public:
    virtual ~TipTimer() = default;
    virtual void setInterval(int ms) = 0;
    virtual int interval() const = 0;
    // (Re)starts the timer: the next tick comes one interval from now.
    virtual void start() = 0;
    virtual void stop() = 0;
    virtual bool isActive() const = 0;
    // Runs `tick` on every timeout.
    virtual void onTimeout(std::function<void()> tick) = 0;
};

// A TipTimer on a QTimer that its owner keeps.
class QtTipTimer : public TipTimer
{
public:
    explicit QtTipTimer(QTimer *timer)
        : m_timer(timer)
    { }
    void setInterval(int ms) override;
    int interval() const override;
    void start() override;
    void stop() override;
    bool isActive() const override;
    void onTimeout(std::function<void()> tick) override;

private:
    QTimer *m_timer;
};
