#pragma once

#include <QDate>

// The calendar's date arithmetic, apart from any window.
namespace DateRules {

// The months the calendar can show: January 1900 to December 2099.
inline constexpr int FirstYear = 1900;
inline constexpr int LastYear = 2099;

// The date (year, month, day) where a day past the month's end runs on into the following
// months: (2026, 2, 31) is 3 March 2026. Months outside 1..12 carry into the year the same way.
QDate dateSerial(int year, int month, int day);

// One or more calendar months on, keeping the day and clipping it to the target month's end:
// 31 January plus one month is the last day of February.
QDate addMonths(QDate date, int months);

bool isFirstMonth(int year, int month);
bool isLastMonth(int year, int month);
// Whether the month of `date` lies within the range the calendar shows.
bool isShownMonth(QDate date);

// `date` pulled into the range the calendar shows: 1 January 1900 to 31 December 2099.
QDate clampToShown(QDate date);

// The column (1..7) of `date` in a week that starts on Sunday or on Monday.
int weekdayColumn(QDate date, bool weekStartsOnSunday);

// The date a cell of a month's grid stands for when the grid is read as a run of days: cell
// `firstDayCell` holds the 1st, so a blank cell before it is a day of the previous month and a
// blank cell after the month's end is a day of the next. Cells count from 1.
QDate cellDate(int year, int month, int firstDayCell, int cellIndex);

} // namespace DateRules
