#include "appearance/Captions.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

struct LanguageRow
{
    const char *language;
    bool english;
};

using LanguageChoice = ::testing::TestWithParam<LanguageRow>;

TEST_P(LanguageChoice, IsEnglishOnlyForTheExactWord)
{
    const LanguageRow &row = GetParam();
    const QString language = QString::fromUtf8(row.language);
    const QStringList months = Captions::monthNames(language);
    ASSERT_EQ(months.size(), 12);
    EXPECT_EQ(months.first(), row.english ? QStringLiteral("January") : QStringLiteral("Январь"));
    EXPECT_EQ(months.last(), row.english ? QStringLiteral("December") : QStringLiteral("Декабрь"));
    EXPECT_EQ(Captions::pick(Captions::LabelSettings, language),
              row.english ? QStringLiteral("  Settings  ") : QStringLiteral("  Настройки  "));
    EXPECT_EQ(Captions::pick(Captions::LabelDays, language),
              row.english ? QStringLiteral("day(s)") : QStringLiteral("дн(ей)"));
}

INSTANTIATE_TEST_SUITE_P(Words, LanguageChoice,
                         ::testing::Values(LanguageRow { "English", true },
                                           LanguageRow { "Russian", false },
                                           LanguageRow { "english", false },
                                           LanguageRow { " English", false },
                                           LanguageRow { "", false }));

struct WeekRow
{
    const char *language;
    const char *firstWeekDay;
    std::vector<const char *> names;
};

using WeekdayLabels = ::testing::TestWithParam<WeekRow>;

TEST_P(WeekdayLabels, StartOnTheChosenFirstDay)
{
    const WeekRow &row = GetParam();
    QStringList expected;
    for (const char *n : row.names)
        expected.append(QString::fromUtf8(n));
    EXPECT_EQ(Captions::weekdayNames(QString::fromUtf8(row.language),
                                     QString::fromUtf8(row.firstWeekDay)),
              expected);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Orders, WeekdayLabels, ::testing::Values(
    WeekRow { "English", "Sunday", { "Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat" } },
    // Anything but the exact "Sunday" starts on Monday.
    WeekRow { "English", "sunday", { "Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun" } },
    WeekRow { "Russian", "Monday", { "Пн", "Вт", "Ср", "Чт", "Пт", "Сб", "Вс" } },
    WeekRow { "Russian", "Sunday", { "Вс", "Пн", "Вт", "Ср", "Чт", "Пт", "Сб" } }));
// clang-format on

TEST(DayCellName, AddsTodayAndSelectedInTheChosenLanguage)
{
    const QString date = QStringLiteral("Thursday, March 5, 2026");
    const QString english = QStringLiteral("English");
    EXPECT_EQ(Captions::dayCellName(date, false, false, english), date);
    EXPECT_EQ(Captions::dayCellName(date, true, true, english),
              QStringLiteral("Thursday, March 5, 2026, today, selected"));
    EXPECT_EQ(Captions::dayCellName(date, false, true, QStringLiteral("Russian")),
              QStringLiteral("Thursday, March 5, 2026, выбрано"));
    EXPECT_EQ(Captions::dayCellName(date, true, false, QStringLiteral("english")),
              QStringLiteral("Thursday, March 5, 2026, сегодня"));
}
