#pragma once

#include <QDateTime>

#include <chrono>

// Where "now" comes from. Tests substitute their own so that they pass on any day.
class Clock
{
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0;
    // Monotonic time for deadlines; never jumps with the wall clock.
    virtual std::chrono::steady_clock::time_point steadyNow() const
    {
        return std::chrono::steady_clock::now();
    }
};

class SystemClock : public Clock
{
public:
    QDateTime now() const override { return QDateTime::currentDateTime(); }
};
