#pragma once

#include "app/Clock.h"

// A clock that shows whatever moment a test sets. Its monotonic time moves on by `steadyStep`
// at every reading, so that tests can make loops run out of time.
class FakeClock : public Clock
{
public:
    explicit FakeClock(QDateTime now = {})
        : m_now(std::move(now))
    { }

    QDateTime now() const override { return m_now; }
    std::chrono::steady_clock::time_point steadyNow() const override
    {
        m_steady += steadyStep;
        return m_steady;
    }

    void setNow(const QDateTime &now) { m_now = now; }

    std::chrono::steady_clock::duration steadyStep {};

private:
    QDateTime m_now;
    mutable std::chrono::steady_clock::time_point m_steady {};
};
