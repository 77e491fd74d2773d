#include "DateRules.h"

#include <algorithm>

namespace DateRules {

QDate dateSerial(int year, int month, int day)
{
    // Month overflow first (13 is January of the next year), then the day runs on from the 1st.
    const int monthIndex = month - 1;
    const int yearCarry = monthIndex >= 0 ? monthIndex / 12 : (monthIndex - 11) / 12;
    const QDate first(year + yearCarry, monthIndex - yearCarry * 12 + 1, 1);
    if (!first.isValid())
        return {};
    return first.addDays(static_cast<qint64>(day) - 1);
}

QDate addMonths(QDate date, int months)
{
    return date.addMonths(months);
}

bool isFirstMonth(int year, int month)
{
    return year == FirstYear && month == 1;
}

bool isLastMonth(int year, int month)
{
    return year == LastYear && month == 12;
}

bool isShownMonth(QDate date)
{
    return date.isValid() && date.year() >= FirstYear && date.year() <= LastYear;
}

QDate clampToShown(QDate date)
{
    return std::clamp(date, QDate(FirstYear, 1, 1), QDate(LastYear, 12, 31));
}

int weekdayColumn(QDate date, bool weekStartsOnSunday)
{
    const int isoDay = date.dayOfWeek(); // Monday 1 .. Sunday 7
    return weekStartsOnSunday ? isoDay % 7 + 1 : isoDay;
}

QDate cellDate(int year, int month, int firstDayCell, int cellIndex)
{
    return QDate(year, month, 1).addDays(cellIndex - firstDayCell);
}

} // namespace DateRules
