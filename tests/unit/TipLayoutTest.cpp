#include "appearance/SchemePalette.h"
#include "support/FixedTipCanvas.h"
#include "support/QtPrinters.h"
#include "tooltip/TipMarkup.h"
#include "tooltip/TipPlacement.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>

using namespace Qt::StringLiterals;

inline void PrintTo(const TipSize &size, std::ostream *os)
{
    *os << size.width << " x " << size.height;
}

namespace {

// What was drawn, one "text@x,y/size flags [face] #colour" per character.
QString drawn(const FixedTipCanvas &canvas)
{
    QStringList out;
    for (const FixedTipCanvas::Draw &d : canvas.draws) {
        const TipFont &f = d.font;
        QString flags = QString::number(f.size);
        const std::pair<bool, char16_t> switches[] = {
            { f.bold, u'b' }, { f.italic, u'i' }, { f.underline, u'u' }, { f.strike, u's' }
        };
        for (const auto &[on, letter] : switches) {
            if (on)
                flags += QChar(letter);
        }
        if (f.face != QStringLiteral("Arial"))
            flags += u'~' + f.face;
        out << QStringLiteral("%1@%2,%3/%4#%5")
                   .arg(d.text)
                   .arg(d.pen.x())
                   .arg(d.pen.y())
                   .arg(flags)
                   .arg(d.color);
    }
    return out.join(u' ');
}

struct LayoutRow
{
    const char *name;
    QString text;
    TipSize size;
    QString drawn;
    QString face = QStringLiteral("Arial");
};

class LayoutTable : public ::testing::TestWithParam<LayoutRow>
{ };

// Base font Arial 9 (90 twips a character, 180 a line) in colour 7.
TEST_P(LayoutTable, SizesAndDrawsOnFixedMetrics)
{
    const LayoutRow &row = GetParam();
    TipStyle style;
    style.fontName = row.face;
    style.foreColor = 7;
    FixedTipCanvas canvas;
    TipLayout layout(canvas, style);
    EXPECT_EQ(layout.DrawTipText(row.text, true), row.size);
    EXPECT_EQ(drawn(canvas), row.drawn);
    EXPECT_GE(layout.provisionalSize().width, row.size.width);
    EXPECT_GE(layout.provisionalSize().height, row.size.height);
    // The measuring pass gives the same size and leaves the drawing alone.
    EXPECT_EQ(layout.DrawTipText(row.text, false), row.size);
    EXPECT_EQ(drawn(canvas), row.drawn);
}

INSTANTIATE_TEST_SUITE_P(
    Tips, LayoutTable,
    ::testing::Values(
        LayoutRow { "EmptyText", u""_s, { 90, 15 }, u""_s },
        LayoutRow { "CarriageReturnStartsALineOneBaseHeightDown",
                    u"A\rB"_s,
                    { 270, 390 },
                    u"A@90,15/9#7 B@90,195/9#7"_s },
        LayoutRow { "LargerTagKeepsTheLineHeight",
                    u"</f 20,b, , , ,255>X<\\f>Y"_s,
                    { 490, 210 },
                    u"X@90,15/20b#255 Y@310,15/9#7"_s },
        LayoutRow { "TagsAreNeverDrawn",
                    u"</fig 11,b, , , ,255>F9<\\f>"_s,
                    { 422, 210 },
                    u"F@90,15/11b#255 9@211,15/11b#255"_s },
        LayoutRow { "EndsInsideAnOpeningTag",
                    u"AB</f 11,b"_s,
                    { 360, 210 },
                    u"A@90,15/9#7 B@180,15/9#7"_s },
        LayoutRow {
            "MissingFieldsGiveSmallestPlainBlack", u"</f >Z"_s, { 190, 210 }, u"Z@90,15/1#0"_s },
        LayoutRow {
            "OnlyExactLettersSwitch", u"</f 9,B,i,U,s,3>Q"_s, { 270, 210 }, u"Q@90,15/9is#3"_s },
        LayoutRow { "HugeAndNonNumericSizesAreClamped",
                    u"</f 10000, , , , ,1>W<\\f></f x, , , , ,1>V"_s,
                    { 910, 210 },
                    u"W@90,15/72#1 V@810,15/1#1"_s },
        LayoutRow { "ColourOutOfRangeKeepsTheInk",
                    u"</f 9, , , , ,16777216>C"_s,
                    { 270, 210 },
                    u"C@90,15/9#7"_s },
        LayoutRow { "MissingFaceFallsBack",
                    u"M"_s,
                    { 270, 210 },
                    u"M@90,15/9~MS Sans Serif#7"_s,
                    u"Nowhere"_s }),
    [](const auto &row) { return std::string(row.param.name); });

TEST(TipMarkup, FontTagsAsTheLayoutReadsThem)
{
    TipStyle style;
    EXPECT_EQ(MakeFontTag(style, u"F9"_s, 2, true, false, false, false, 255),
              u"</f 11,b, , , ,255>F9<\\f>"_s);
    EXPECT_EQ(MakeFontTag(style, u"x"_s, 0, u"Yes"_s, u"Yes"_s, u"No"_s, true, 0),
              u"</f 9,b,i, ,s,0>x<\\f>"_s);
    style.fontSize = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(MakeFontTag(style, u"x"_s, 1, true, true, true, true, 0), QString());
    style.fontSize = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(MakeFontTag(style, u"x"_s, -1, true, true, true, true, 0), QString());
    EXPECT_EQ(GetDelimitedField(u"9,b,,0", 3, u","), QString());
    EXPECT_EQ(GetDelimitedField(u"9,b,,0", 4, u","), u"0"_s);
    EXPECT_EQ(GetDelimitedField(u"9,b,,0", 5, u","), QString());
    EXPECT_EQ(GetDelimitedField(u"9,b,,0", 0, u","), QString());
}

struct PlaceRow
{
    const char *name;
    QPoint pointer;
    bool near;
    QPoint expected;
};

class PlacementTable : public ::testing::TestWithParam<PlaceRow>
{ };

// A tooltip of 3000 x 600 twips on a 1280 x 800 screen (19200 x 12000 twips).
TEST_P(PlacementTable, StaysOnTheScreen)
{
    const PlaceRow &row = GetParam();
    EXPECT_EQ(TipPlacement::place(row.pointer, { 3000, 600 }, { 0, 0, 19200, 12000 }, row.near),
              row.expected);
    // The same on a second screen to the right of the first.
    EXPECT_EQ(TipPlacement::place(row.pointer + QPoint(19200, 0), { 3000, 600 },
                                  { 19200, 0, 19200, 12000 }, row.near),
              row.expected + QPoint(19200, 0));
}

INSTANTIATE_TEST_SUITE_P(
    EdgesAndCorners, PlacementTable,
    ::testing::Values(
        PlaceRow { "Middle", { 9000, 6000 }, false, { 9015, 6270 } },
        PlaceRow { "MiddleNear", { 9000, 6000 }, true, { 9015, 6020 } },
        PlaceRow { "TopLeftCorner", { 0, 0 }, false, { 15, 270 } },
        PlaceRow { "JustShortOfTheRightEdge", { 16199, 6000 }, false, { 16214, 6270 } },
        PlaceRow { "AtTheRightEdge", { 16200, 6000 }, false, { 16050, 6270 } },
        PlaceRow { "JustAboveTheBottomZone", { 9000, 11099 }, false, { 9015, 11369 } },
        PlaceRow { "InTheBottomZone", { 9000, 11100 }, false, { 9015, 10350 } },
        PlaceRow { "InTheBottomZoneNear", { 9000, 11100 }, true, { 9015, 10460 } },
        PlaceRow { "BottomRightCorner", { 19199, 11999 }, false, { 16050, 11249 } },
        PlaceRow { "TopRightCorner", { 19199, 0 }, false, { 16050, 270 } },
        PlaceRow { "BottomLeftCorner", { 0, 11999 }, false, { 15, 11249 } }),
    [](const auto &row) { return std::string(row.param.name); });

// Light green on Blue, light yellow on Black, Green and Pink, white on Yellow and GrayScale,
// pale yellow on White; red frames except the grey of GrayScale; black text everywhere.
TEST(TipColours, EverySchemeAsDesigned)
{
    const std::map<QString, std::pair<std::uint32_t, std::uint32_t>> expected {
        { u"Blue"_s, { 0xC6FFC6, 255 } },          { u"Green"_s, { 0xC6FFFF, 255 } },
        { u"Black"_s, { 0xC6FFFF, 255 } },         { u"White"_s, { 0xEAFFFF, 255 } },
        { u"Yellow"_s, { 0xFFFFFF, 255 } },        { u"Pink"_s, { 0xC6FFFF, 255 } },
        { u"GrayScale"_s, { 0xFFFFFF, 5789784 } },
    };
    ASSERT_EQ(SchemePalettes::end() - SchemePalettes::begin(), 7);
    for (const SchemePalette *p = SchemePalettes::begin(); p != SchemePalettes::end(); ++p) {
        EXPECT_EQ(std::make_pair(p->tipBack, p->tipBorder), expected.at(p->name))
            << p->name.toStdString();
        EXPECT_EQ(p->tipText, 0u) << p->name.toStdString();
    }
}

} // namespace
