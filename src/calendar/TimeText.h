#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

class Clock;

// The locale's named date and time formats as the calendar uses them.
namespace LocaleFormats {

// The short date, with a two-digit year widened to four: the calendar spans two centuries.
QString shortDatePattern(const QLocale &locale);
// The long time without its time-zone field, so that a zone name never reads as a designator.
QString longTimePattern(const QLocale &locale);
// The short time in 24-hour form (designator dropped, hours 0-23).
QString shortTime24Pattern(const QLocale &locale);

QString shortDate(QDate date, const QLocale &locale = QLocale());
QString longTime(const QDateTime &moment, const QLocale &locale = QLocale());

} // namespace LocaleFormats

// What the clock text depends on besides the time itself.
struct TimeFormatContext
{
    bool timeAmPm = true; // 12-hour style with a designator; 24-hour otherwise
    QString longTimeSample; // the present moment in the long time format
    QString shortTime24Pattern; // used by the 24-hour style
    QString systemAm; // the locale's own designators
    QString systemPm;

    static TimeFormatContext fromLocale(const QLocale &locale, const QDateTime &now, bool timeAmPm);
};

// The designators the 12-hour style settled on.
struct Designators
{
    QString am;
    QString pm;
};

// The clock text of `value`: hours without a leading zero, minutes, seconds when asked, and in
// 12-hour style the designator whose spelling the long-time sample suggests.
QString FormatTime(QTime value, bool withSeconds, const TimeFormatContext &context,
                   Designators *chosen = nullptr);

// The present moment with the seconds dropped, and with them kept.
QDateTime NowToMinute(const Clock &clock);
QDateTime NowToSecond(const Clock &clock);

// Day boundaries from `from` to `to`: positive when `to` lies ahead, 0 on the same day.
qint64 dayDifference(const QDateTime &from, QDate to);
