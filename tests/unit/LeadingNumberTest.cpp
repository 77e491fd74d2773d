#include "app/LeadingNumber.h"

#include <QString>

#include <gtest/gtest.h>

struct LeadingNumberRow
{
    const char *text;
    double expected;
};

class LeadingNumberTest : public ::testing::TestWithParam<LeadingNumberRow>
{ };

TEST_P(LeadingNumberTest, ReadsTheNumberTheTextBeginsWith)
{
    const auto &row = GetParam();
    const auto value = leadingNumber(QString::fromLatin1(row.text));
    ASSERT_TRUE(value.has_value()) << row.text;
    EXPECT_DOUBLE_EQ(*value, row.expected) << row.text;
}

INSTANTIATE_TEST_SUITE_P(
    Values, LeadingNumberTest,
    ::testing::Values(LeadingNumberRow { "7", 7 }, LeadingNumberRow { "-1", -1 },
                      LeadingNumberRow { "letters", 0 }, LeadingNumberRow { "", 0 },
                      LeadingNumberRow { "2.5", 2.5 }, LeadingNumberRow { " 1 2 3", 123 },
                      LeadingNumberRow { "12abc", 12 }, LeadingNumberRow { "1e3", 1000 },
                      LeadingNumberRow { "1D2", 100 }, LeadingNumberRow { "&H10", 16 },
                      LeadingNumberRow { "&HFFFF", -1 }, LeadingNumberRow { "&O17", 15 },
                      LeadingNumberRow { "+4", 4 }, LeadingNumberRow { ".5", 0.5 },
                      LeadingNumberRow { "1.2.3", 1.2 }, LeadingNumberRow { "-", 0 },
                      LeadingNumberRow { "\t9\n9", 99 }, LeadingNumberRow { "1e", 1 }));

TEST(LeadingNumberOverflow, NumbersBeyondADoubleOverflow)
{
    EXPECT_FALSE(leadingNumber(u"1e400").has_value());
    EXPECT_FALSE(leadingNumber(u"-1e999").has_value());
    EXPECT_FALSE(leadingNumber(u"&H123456789").has_value());
    EXPECT_TRUE(leadingNumber(u"1e-400").has_value());
}

TEST(RoundHalfEven, HalvesGoToTheEvenNeighbour)
{
    EXPECT_EQ(roundHalfEven(2.5), 2);
    EXPECT_EQ(roundHalfEven(3.5), 4);
    EXPECT_EQ(roundHalfEven(-0.5), 0);
    EXPECT_EQ(roundHalfEven(1.4), 1);
    EXPECT_EQ(roundHalfEven(1.6), 2);
}
