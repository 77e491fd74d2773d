#pragma once

#include <QDate>
#include <QDateTime>
#include <QPoint>
#include <QString>

#include <ostream>

// Readable failure messages for Qt values.
inline void PrintTo(const QDate &date, std::ostream *os)
{
    *os << (date.isValid() ? date.toString(Qt::ISODate).toStdString() : std::string("null date"));
}

inline void PrintTo(const QString &text, std::ostream *os)
{
    *os << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QPoint &point, std::ostream *os)
{
    *os << '(' << point.x() << ", " << point.y() << ')';
}
