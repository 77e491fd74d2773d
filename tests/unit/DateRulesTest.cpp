#include "calendar/DateRules.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

struct SerialRow
{
    int year, month, day;
    QDate expected;
};

class DateSerial : public ::testing::TestWithParam<SerialRow>
{ };

TEST_P(DateSerial, RunsOverflowIntoTheFollowingMonths)
{
    const SerialRow &r = GetParam();
    EXPECT_EQ(DateRules::dateSerial(r.year, r.month, r.day), r.expected)
        << r.year << "-" << r.month << "-" << r.day;
}

INSTANTIATE_TEST_SUITE_P(Rows, DateSerial,
                         ::testing::Values(SerialRow { 2026, 2, 31, QDate(2026, 3, 3) },
                                           SerialRow { 2024, 2, 31, QDate(2024, 3, 2) },
                                           SerialRow { 2026, 2, 28, QDate(2026, 2, 28) },
                                           SerialRow { 2026, 4, 31, QDate(2026, 5, 1) },
                                           SerialRow { 2026, 3, 0, QDate(2026, 2, 28) },
                                           SerialRow { 2026, 13, 1, QDate(2027, 1, 1) },
                                           SerialRow { 2026, 0, 1, QDate(2025, 12, 1) },
                                           SerialRow { 2099, 11, 31, QDate(2099, 12, 1) }));

struct MonthStepRow
{
    QDate from;
    int months;
    QDate expected;
};

class MonthStep : public ::testing::TestWithParam<MonthStepRow>
{ };

TEST_P(MonthStep, KeepsTheDayClippedToTheTargetMonth)
{
    const MonthStepRow &r = GetParam();
    EXPECT_EQ(DateRules::addMonths(r.from, r.months), r.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, MonthStep,
    ::testing::Values(MonthStepRow { QDate(2026, 1, 31), 1, QDate(2026, 2, 28) },
                      MonthStepRow { QDate(2024, 1, 31), 1, QDate(2024, 2, 29) },
                      MonthStepRow { QDate(2026, 3, 31), -1, QDate(2026, 2, 28) },
                      MonthStepRow { QDate(2026, 12, 15), 1, QDate(2027, 1, 15) },
                      MonthStepRow { QDate(1900, 2, 28), -1, QDate(1900, 1, 28) }));

TEST(MonthBounds, AreJanuary1900AndDecember2099)
{
    EXPECT_TRUE(DateRules::isFirstMonth(1900, 1));
    EXPECT_FALSE(DateRules::isFirstMonth(1900, 2));
    EXPECT_FALSE(DateRules::isFirstMonth(1901, 1));
    EXPECT_TRUE(DateRules::isLastMonth(2099, 12));
    EXPECT_FALSE(DateRules::isLastMonth(2099, 11));
    EXPECT_FALSE(DateRules::isShownMonth(QDate(1899, 12, 31)));
    EXPECT_TRUE(DateRules::isShownMonth(QDate(1900, 1, 1)));
    EXPECT_TRUE(DateRules::isShownMonth(QDate(2099, 12, 31)));
    EXPECT_FALSE(DateRules::isShownMonth(QDate(2100, 1, 1)));
}

TEST(BlankCellTargets, LeadIntoThePreviousMonthAndTrailIntoTheNext)
{
    // April 2026 with the 1st in cell 4 (Sunday first).
    EXPECT_EQ(DateRules::cellDate(2026, 4, 4, 1), QDate(2026, 3, 29));
    EXPECT_EQ(DateRules::cellDate(2026, 4, 4, 3), QDate(2026, 3, 31));
    EXPECT_EQ(DateRules::cellDate(2026, 4, 4, 34), QDate(2026, 5, 1));
    EXPECT_EQ(DateRules::cellDate(2026, 4, 4, 42), QDate(2026, 5, 9));
}

TEST(WeekdayColumn, FollowsTheFirstDayOfTheWeek)
{
    const QDate sunday(2026, 3, 1);
    EXPECT_EQ(DateRules::weekdayColumn(sunday, true), 1);
    EXPECT_EQ(DateRules::weekdayColumn(sunday, false), 7);
    EXPECT_EQ(DateRules::weekdayColumn(sunday.addDays(1), true), 2);
    EXPECT_EQ(DateRules::weekdayColumn(sunday.addDays(1), false), 1);
}
