#include "calendar/TimeText.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

struct FormatRow
{
    const char *name;
    const char *sample; // the present moment in the long time format
    QTime value;
    bool withSeconds;
    bool timeAmPm;
    const char *expected;
    const char *am; // designators chosen; empty for the 24-hour style
    const char *pm;
};

using FormatTimeTable = ::testing::TestWithParam<FormatRow>;

TEST_P(FormatTimeTable, PicksTheDesignatorTheSampleSuggests)
{
    const FormatRow &row = GetParam();
    TimeFormatContext context;
    context.timeAmPm = row.timeAmPm;
    context.longTimeSample = QString::fromUtf8(row.sample);
    context.shortTime24Pattern = QStringLiteral("HH:mm");
    context.systemAm = QStringLiteral("a.m.");
    context.systemPm = QStringLiteral("p.m.");
    Designators chosen;
    EXPECT_EQ(FormatTime(row.value, row.withSeconds, context, &chosen),
              QString::fromUtf8(row.expected))
        << row.name;
    EXPECT_EQ(chosen.am, QString::fromUtf8(row.am)) << row.name;
    EXPECT_EQ(chosen.pm, QString::fromUtf8(row.pm)) << row.name;
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Samples, FormatTimeTable, ::testing::Values(
    FormatRow { "upper",          "10:15:30 AM",   QTime(10, 15, 30), true,  true,  "10:15:30 AM",  "AM",   "PM" },
    FormatRow { "upperAfternoon", "3:15:30 PM",    QTime(15, 5, 9),   true,  true,  "3:05:09 PM",   "AM",   "PM" },
    FormatRow { "lower",          "10:15:30 am",   QTime(22, 5, 9),   true,  true,  "10:05:09 pm",  "am",   "pm" },
    FormatRow { "singleUpper",    "10:15:30 A",    QTime(0, 5),       false, true,  "12:05 A",      "A",    "P" },
    FormatRow { "singleLower",    "10:15:30 p",    QTime(12, 0),      true,  true,  "12:00:00 p",   "a",    "p" },
    FormatRow { "dottedLower",    "10:15:30 a.m.", QTime(13, 0, 1),   true,  true,  "1:00:01 p.m.", "A.M.", "P.M." },
    FormatRow { "dottedUpper",    "10:15:30 A.M.", QTime(9, 30),      true,  true,  "9:30:00 a.m.", "A.M.", "P.M." },
    FormatRow { "none",           "22:15:30",      QTime(22, 15, 30), true,  true,  "10:15:30 PM",  "AM",   "PM" },
    // A zone name left in the sample reads as a one-letter designator; this is why the long
    // time format loses its zone field before it gives the sample.
    FormatRow { "zoneName",       "10:15:30 PST",  QTime(10, 15, 30), true,  true,  "10:15:30 A",   "A",    "P" },
    FormatRow { "twentyFourHour", "10:15:30 AM",   QTime(9, 5, 7),    true,  false, "09:05:07",     "",     "" },
    FormatRow { "twentyFourHourNoSeconds", "",     QTime(23, 59, 59), false, false, "23:59",        "",     "" }),
    [](const auto &row) { return std::string(row.param.name); });
// clang-format on

TEST(LocaleFormats, DropTheZoneAndWidenTheYear)
{
    const QLocale us(QLocale::English, QLocale::UnitedStates);
    const QLocale ru(QLocale::Russian, QLocale::Russia);
    const QLocale cn(QLocale::Chinese, QLocale::China);
    const QLocale kr(QLocale::Korean, QLocale::SouthKorea);
    ASSERT_TRUE(us.timeFormat(QLocale::LongFormat).contains(u't'));
    EXPECT_EQ(LocaleFormats::longTimePattern(us), QStringLiteral("h:mm:ss AP"));
    EXPECT_EQ(LocaleFormats::longTimePattern(ru), QStringLiteral("HH:mm:ss"));
    EXPECT_EQ(LocaleFormats::longTimePattern(cn), QStringLiteral("HH:mm:ss"));
    EXPECT_EQ(LocaleFormats::shortDatePattern(us), QStringLiteral("M/d/yyyy"));
    EXPECT_EQ(LocaleFormats::shortDatePattern(ru), QStringLiteral("dd.MM.yyyy"));
    EXPECT_EQ(LocaleFormats::shortTime24Pattern(us), QStringLiteral("H:mm"));
    EXPECT_EQ(LocaleFormats::shortTime24Pattern(kr), QStringLiteral("H:mm"));
    EXPECT_EQ(LocaleFormats::shortTime24Pattern(ru), QStringLiteral("HH:mm"));
    EXPECT_EQ(LocaleFormats::shortDate(QDate(1905, 7, 4), us), QStringLiteral("7/4/1905"));
}
