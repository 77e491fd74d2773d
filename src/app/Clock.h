#pragma once

#include <QDateTime>

#include <chrono>

// Where "now" comes from. Tests substitute their own so that they pass on any day.
class Clock
{
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0;
    // Seconds since the epoch: which second it is, without the time zone's cost (the local
    // time looks the zone up, a file's status included, at every reading).
    virtual qint64 currentSecond() const { return now().toSecsSinceEpoch(); }
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
    qint64 currentSecond() const override { return QDateTime::currentSecsSinceEpoch(); }
};
