#include "calendar/MonthGrid.h"

#include "app/Clock.h"
#include "support/FakeClock.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

// Calendar facts worked out here from first principles, not with QDate, so that the grid is
// checked against an independent count.
bool isLeap(int year)
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int monthLength(int year, int month)
{
    static constexpr int lengths[] = { 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31 };
    return month == 2 && isLeap(year) ? 29 : lengths[month - 1];
}

// 1 January 1900 was a Monday; 0 = Monday .. 6 = Sunday.
int mondayBasedWeekday(int year, int month)
{
    long days = 0;
    for (int y = 1900; y < year; ++y)
        days += isLeap(y) ? 366 : 365;
    for (int m = 1; m < month; ++m)
        days += monthLength(year, m);
    return static_cast<int>(days % 7);
}

MonthGrid filled(int year, int month, QDate today, QDate selected, bool sundayFirst = true)
{
    FakeClock clock;
    MonthGrid grid;
    grid.fill({ year, month, today, selected, sundayFirst, false }, clock);
    return grid;
}

} // namespace

// Every month of the calendar's range, with the week starting on Sunday and on Monday.
using MonthTable = ::testing::TestWithParam<std::tuple<int, bool>>;

TEST_P(MonthTable, HoldsTheDaysInOrderFromTheRightColumn)
{
    const auto [monthNumber, sundayFirst] = GetParam();
    const int year = 1900 + monthNumber / 12;
    const int month = monthNumber % 12 + 1;
    const int length = monthLength(year, month);
    const int firstCell = (mondayBasedWeekday(year, month) + (sundayFirst ? 1 : 0)) % 7 + 1;
    // Nothing today or selected in this month, so every day cell has the plain colour.
    const MonthGrid grid = filled(year, month, QDate(1899, 1, 1), QDate(1899, 1, 2), sundayFirst);

    ASSERT_EQ(grid.firstDayCell(), firstCell) << year << "-" << month;
    for (int index = 1; index <= MonthGrid::CellCount; ++index) {
        const MonthGrid::Cell &cell = grid.cell(index);
        const int expectedDay = index - firstCell + 1;
        if (expectedDay >= 1 && expectedDay <= length) {
            ASSERT_EQ(cell.day, expectedDay) << year << "-" << month << " cell " << index;
            ASSERT_EQ(cell.backColor, 0xE0E0E0u) << year << "-" << month << " cell " << index;
        } else {
            ASSERT_EQ(cell.day, 0) << year << "-" << month << " cell " << index;
            ASSERT_EQ(cell.backColor, 0xC8D0D4u) << year << "-" << month << " cell " << index;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Range, MonthTable,
                         ::testing::Combine(::testing::Range(0, 200 * 12), ::testing::Bool()));

struct ColourRow
{
    const char *name;
    QDate today;
    QDate selected;
    // day of March 2026 -> expected colour; other days must be plain
    std::vector<std::pair<int, std::uint32_t>> marked;
};

using GridColours = ::testing::TestWithParam<ColourRow>;

TEST_P(GridColours, MarkTodayAndTheSelectedDate)
{
    const ColourRow &row = GetParam();
    const MonthGrid grid = filled(2026, 3, row.today, row.selected);
    for (int day = 1; day <= 31; ++day) {
        std::uint32_t expected = 0xE0E0E0;
        for (const auto &[markedDay, colour] : row.marked) {
            if (markedDay == day)
                expected = colour;
        }
        const int index = grid.cellOf(QDate(2026, 3, day));
        ASSERT_GT(index, 0);
        EXPECT_EQ(grid.cell(index).backColor, expected) << row.name << ", day " << day;
    }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Rules, GridColours, ::testing::Values(
    ColourRow { "TodayOnly",                QDate(2026, 3, 10), QDate(),           { { 10, 0xFFFFFF } } },
    ColourRow { "SelectedBeforeToday",      QDate(2026, 3, 10), QDate(2026, 3, 4), { { 10, 0xFFFFFF }, { 4, 0xC0C0FF } } },
    ColourRow { "SelectedAfterToday",       QDate(2026, 3, 10), QDate(2026, 3, 20), { { 10, 0xFFFFFF }, { 20, 0x80FFFF } } },
    ColourRow { "SelectedIsToday",          QDate(2026, 3, 10), QDate(2026, 3, 10), { { 10, 0x80FFFF } } },
    ColourRow { "SelectedInAnotherMonth",   QDate(2026, 3, 10), QDate(2026, 4, 10), { { 10, 0xFFFFFF } } },
    ColourRow { "BothInOtherMonths",        QDate(2026, 5, 1),  QDate(2026, 2, 3),  {} },
    ColourRow { "TodayInALaterMonth",       QDate(2026, 5, 1),  QDate(2026, 3, 31), { { 31, 0xC0C0FF } } }),
    [](const auto &row) { return std::string(row.param.name); });
// clang-format on
