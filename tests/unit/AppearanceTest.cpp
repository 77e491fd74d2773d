#include "appearance/AppearanceNames.h"
#include "appearance/BackgroundPictures.h"
#include "appearance/BgrColor.h"
#include "appearance/Contrast.h"
#include "appearance/SchemePalette.h"
#include "appearance/WindowBackground.h"
#include "calendar/MainFormLayout.h"
#include "calendar/MonthGrid.h"
#include "support/ImageGap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

using Field = std::uint32_t SchemePalette::*;
using TextPair = std::tuple<const char *, Field, Field>; // what, text, ground

// Every text the windows draw, on the surface it stands on.
using P = SchemePalette;
// clang-format off
const TextPair TextPairs[] = {
    { "title", &P::title, &P::ground },            { "caption", &P::caption, &P::ground },
    { "value", &P::value, &P::ground },            { "weekday", &P::weekday, &P::ground },
    { "link", &P::link, &P::ground },              { "hovered link", &P::linkHover, &P::ground },
    { "list", &P::listText, &P::listBack },        { "button", &P::buttonInk, &P::buttonFace },
    { "hovered button", &P::buttonHoverInk, &P::buttonHover },
    { "pressed button", &P::buttonInk, &P::buttonPressed },
    { "hovered close", &P::closeHoverInk, &P::closeHover },
    { "tooltip", &P::tipText, &P::tipBack },       { "day", &P::cellText, &P::cellDay },
    { "today", &P::cellText, &P::cellToday },      { "past", &P::cellText, &P::cellSelectedPast },
    { "future", &P::cellText, &P::cellSelectedFuture },
};
// clang-format on

// The cell colours by meaning, each with the month grid's colour for it.
const std::pair<Field, std::uint32_t> CellMeanings[] = {
    { &P::cellOutside, MonthGrid::LeadingBackColor },
    { &P::cellDay, MonthGrid::DayBackColor },
    { &P::cellToday, MonthGrid::TodayBackColor },
    { &P::cellSelectedPast, MonthGrid::SelectedBeforeTodayBackColor },
    { &P::cellSelectedFuture, MonthGrid::SelectedFromTodayBackColor },
};

double distance(std::uint32_t a, std::uint32_t b)
{
    const QColor x = colorFromBgr(a), y = colorFromBgr(b);
    return std::hypot(x.red() - y.red(), x.green() - y.green(), x.blue() - y.blue());
}

using Scheme = ::testing::TestWithParam<QString>;
using Picture = ::testing::TestWithParam<QString>;

const auto rowName = [](const ::testing::TestParamInfo<QString> &row) {
    return row.param.toStdString();
};

TEST(Contrast, MatchesTheGuidelinesFigures)
{
    EXPECT_NEAR(Contrast::ratioOfBgr(0x777777, 0xFFFFFF), 4.48, 0.01);
}

TEST_P(Scheme, EveryTextReadsOnItsGround)
{
    const SchemePalette &palette = SchemePalettes::forScheme(GetParam());
    EXPECT_EQ(palette.name, GetParam()); // not the default standing in for an unknown name
    for (const auto &[what, text, ground] : TextPairs)
        EXPECT_GE(Contrast::ratioOfBgr(palette.*text, palette.*ground), 4.5) << what;
}

// Outside the month, a day, today and the two selected days stay apart, and today's ring shows
// on today's cell (3:1, as for any mark that is not text).
TEST_P(Scheme, KeepsTheCellMeaningsApart)
{
    const SchemePalette &palette = SchemePalettes::forScheme(GetParam());
    for (const auto &[meaning, gridColor] : CellMeanings) {
        EXPECT_EQ(palette.cellColor(gridColor), palette.*meaning);
        for (const auto &[other, unused] : CellMeanings)
            EXPECT_TRUE(meaning == other || distance(palette.*meaning, palette.*other) >= 30);
    }
    EXPECT_GE(Contrast::ratioOfBgr(palette.todayMark, palette.cellToday), 3.0);
    EXPECT_GE(Contrast::ratioOfBgr(palette.todayMark, palette.cellSelectedFuture), 3.0);
}

INSTANTIATE_TEST_SUITE_P(All, Scheme, ::testing::ValuesIn(AppearanceNames::concreteColorSchemes()),
                         rowName);

// Every colour of a text that stands on the window's body, and every place where one stands:
// the labels and controls and, in their cells, the day numbers.
const Field BodyTexts[] = { &P::title, &P::caption,   &P::value,   &P::weekday,
                            &P::link,  &P::linkHover, &P::cellText };

QList<QRect> textRects()
{
    QList<QRect> rects = MainFormLayout::textAreas();
    for (int cell = 1; cell <= MonthGrid::CellCount; ++cell)
        rects.append(MainFormLayout::dayCell(cell));
    return rects;
}

// Contrast of a text colour against the worst 5 % of the pixels under its rectangle.
double worstContrast(const QImage &image, const QRect &rect, std::uint32_t text)
{
    const double ink = Contrast::luminanceOfBgr(text);
    std::vector<double> ratios;
    for (int y = rect.top(); y <= rect.bottom(); ++y)
        for (int x = rect.left(); x <= rect.right(); ++x)
            ratios.push_back(Contrast::ratio(Contrast::luminance(image.pixel(x, y)), ink));
    const auto worst = ratios.begin() + std::ptrdiff_t(ratios.size() / 20);
    std::nth_element(ratios.begin(), worst, ratios.end());
    return *worst;
}

// A 4 x 4 thumbnail of averaged colours: enough to tell a night sky from a meadow.
QImage thumbnail(const QImage &image)
{
    return image.scaled(4, 4, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_RGB32);
}

// Sum of squared steps between neighbours: blowing a picture up halves it at every edge.
double edgeEnergy(const QImage &image)
{
    const int w = image.width();
    double sum = 0;
    for (int i = 1; i < w * image.height(); ++i)
        sum += std::pow(
            qGreen(image.pixel(i % w, i / w)) - qGreen(image.pixel((i - 1) % w, (i - 1) / w)), 2);
    return sum;
}

} // namespace

TEST_P(Picture, LeavesEveryTextLegibleInEveryScheme)
{
    const QSize size(MainFormLayout::Width, MainFormLayout::Height);
    for (const SchemePalette *p = SchemePalettes::begin(); p != SchemePalettes::end(); ++p) {
        const QImage image =
            WindowBackground::render(GetParam(), *p, size, 1, MainFormLayout::textAreas());
        for (const QRect &rect : textRects())
            for (const Field text : BodyTexts)
                EXPECT_GE(worstContrast(image, rect, p->*text), 4.5)
                    << p->name.toStdString() << " at " << rect.x() << "," << rect.y();
    }
}

// Painted at the screen's scale rather than blown up, the same picture at both scales, and
// neither blank nor one flat colour.
TEST_P(Picture, RendersAtOneAndTwoTimesWithDetail)
{
    const QImage one = BackgroundPictures::render(GetParam(), QSize(400, 273), 1);
    const QImage two = BackgroundPictures::render(GetParam(), QSize(400, 273), 2);
    ASSERT_EQ(one.size(), QSize(400, 273));
    ASSERT_EQ(two.size(), QSize(800, 546));
    // The picture against its own mean colour.
    const QImage flat =
        thumbnail(one).scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    EXPECT_GT(meanGap(one, flat.scaled(one.size())), 5);
    EXPECT_LT(meanGap(thumbnail(one), thumbnail(two)), 12);
    const QImage blownUp = one.scaled(two.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    EXPECT_GT(edgeEnergy(two), 1.5 * edgeEnergy(blownUp));
}

INSTANTIATE_TEST_SUITE_P(All, Picture, ::testing::ValuesIn(AppearanceNames::concretePictures()),
                         rowName);

TEST(Pictures, NoTwoLookAlike)
{
    std::vector<QImage> thumbnails;
    for (const QString &name : AppearanceNames::concretePictures())
        thumbnails.push_back(thumbnail(BackgroundPictures::render(name, QSize(400, 273), 1)));
    for (std::size_t a = 0; a < thumbnails.size(); ++a)
        for (std::size_t b = a + 1; b < thumbnails.size(); ++b)
            EXPECT_GT(meanGap(thumbnails[a], thumbnails[b]), 24) << a << " and " << b;
}
