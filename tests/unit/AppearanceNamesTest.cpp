#include "appearance/AppearanceNames.h"

#include <QMap>
#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace {

struct DrawRow
{
    const char *name;
    const QStringList &(*concrete)();
    QString (*resolve)(const QString &, QRandomGenerator &);
};

class RandomDraw : public ::testing::TestWithParam<DrawRow>
{ };

} // namespace

// Over many draws each concrete name comes up about equally often: the chi-square statistic
// stays below the 0.1 % critical value (22.5 for 6 degrees of freedom, 24.3 for 7). A draw that
// favours or never reaches a name, or that can return "Random" or "None", fails.
TEST_P(RandomDraw, IsUniformOverTheConcreteNames)
{
    const DrawRow &row = GetParam();
    const QStringList &names = row.concrete();
    QRandomGenerator random(20240601);
    QMap<QString, int> counts;
    const int draws = 70000;
    for (int i = 0; i < draws; ++i)
        ++counts[row.resolve(QStringLiteral("Random"), random)];
    ASSERT_EQ(counts.size(), names.size());
    const double expected = double(draws) / names.size();
    double chiSquare = 0;
    for (const QString &name : names) {
        const double d = counts.value(name) - expected;
        chiSquare += d * d / expected;
    }
    EXPECT_LT(chiSquare, names.size() == 7 ? 22.46 : 24.32);
    EXPECT_FALSE(counts.contains(QStringLiteral("Random")));
    EXPECT_FALSE(counts.contains(QStringLiteral("None")));
}

TEST_P(RandomDraw, AConcreteChoiceIsItself)
{
    QRandomGenerator random(1);
    for (const QString &name : GetParam().concrete())
        EXPECT_EQ(GetParam().resolve(name, random), name);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, RandomDraw,
    ::testing::Values(DrawRow { "Schemes", &AppearanceNames::concreteColorSchemes,
                                &AppearanceNames::resolveColorScheme },
                      DrawRow { "Pictures", &AppearanceNames::concretePictures,
                                &AppearanceNames::resolvePicture }),
    [](const ::testing::TestParamInfo<DrawRow> &p) { return std::string(p.param.name); });
