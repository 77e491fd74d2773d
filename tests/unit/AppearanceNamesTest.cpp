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

using RandomDraw = ::testing::TestWithParam<DrawRow>;

} // namespace

// "Random" draws each concrete name about equally often (every count within 5 % of the mean over
// 70000 draws) and never "Random" or "None".
TEST_P(RandomDraw, IsFairOverTheConcreteNames)
{
    const QStringList &names = GetParam().concrete();
    QRandomGenerator random(20240601);
    QMap<QString, int> counts;
    for (int i = 0; i < 70000; ++i)
        ++counts[GetParam().resolve(QStringLiteral("Random"), random)];
    QStringList sorted = names;
    sorted.sort();
    EXPECT_EQ(counts.keys(), sorted);
    for (const QString &name : names)
        EXPECT_NEAR(counts.value(name), 70000.0 / names.size(), 70000.0 / names.size() / 20)
            << name.toStdString();
}

TEST_P(RandomDraw, AConcreteChoiceIsItself)
{
    QRandomGenerator random(1);
    for (const QString &name : GetParam().concrete())
        EXPECT_EQ(GetParam().resolve(name, random), name);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Kinds, RandomDraw, ::testing::Values(
    DrawRow { "Schemes", &AppearanceNames::concreteColorSchemes, &AppearanceNames::resolveColorScheme },
    DrawRow { "Pictures", &AppearanceNames::concretePictures, &AppearanceNames::resolvePicture }),
    [](const ::testing::TestParamInfo<DrawRow> &p) { return std::string(p.param.name); });
// clang-format on
