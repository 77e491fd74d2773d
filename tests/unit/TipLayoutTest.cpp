#include "support/FixedTipCanvas.h"
#include "support/QtPrinters.h"
#include "tooltip/TipMarkup.h"
#include "tooltip/TipPlacement.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

inline void PrintTo(const TipSize &size, std::ostream *os)
{
    *os << size.width << " x " << size.height;
}

namespace {

// What was drawn, one "text@x,y/size[b][i][u][s][~face]#colour" per character.
QString drawn(const FixedTipCanvas &canvas)
{
    QStringList out;
    for (const auto &[pen, text, f, color] : canvas.draws) {
        QString look = QString::number(f.size);
        for (const auto &[on, letter] : { std::pair { f.bold, u'b' },
                                          { f.italic, u'i' },
                                          { f.underline, u'u' },
                                          { f.strike, u's' } })
            look += on ? QString(letter) : QString();
        look += f.face == u"Arial" ? QString() : u'~' + f.face;
        out << u"%1@%2,%3/%4#%5"_s.arg(text).arg(pen.x()).arg(pen.y()).arg(look).arg(color);
    }
    return out.join(u' ');
}

struct LayoutRow
{
    const char *name;
    const char16_t *text;
    TipSize size;
    const char16_t *drawn;
    const char16_t *face = u"Arial";
};

using LayoutTable = ::testing::TestWithParam<LayoutRow>;

// Base font Arial 9 (90 twips a character, 180 a line) in colour 7.
TEST_P(LayoutTable, SizesAndDrawsOnFixedMetrics)
{
    const LayoutRow &row = GetParam();
    TipStyle style;
    style.fontName = QString::fromUtf16(row.face);
    style.foreColor = 7;
    FixedTipCanvas canvas;
    TipLayout layout(canvas, style);
    const QString text = QString::fromUtf16(row.text);
    EXPECT_EQ(layout.DrawTipText(text, true), row.size);
    EXPECT_EQ(drawn(canvas), QString::fromUtf16(row.drawn));
    EXPECT_GE(layout.provisionalSize().width, row.size.width);
    EXPECT_GE(layout.provisionalSize().height, row.size.height);
    // The measuring pass gives the same size and leaves the drawing alone.
    EXPECT_EQ(layout.DrawTipText(text, false), row.size);
    EXPECT_EQ(drawn(canvas), QString::fromUtf16(row.drawn));
}

// Tags are never drawn; a larger tag leaves the line height alone; a carriage return starts a
// line one base height down at the left margin; missing fields give size 0 (the smallest),
// no attributes, colour 0; only the exact letters switch attributes on.
// clang-format off
INSTANTIATE_TEST_SUITE_P(Tips, LayoutTable, ::testing::Values(
    LayoutRow { "Empty", u"", { 90, 15 }, u"" },
    LayoutRow { "CarriageReturn", u"A\rB", { 270, 390 }, u"A@90,15/9#7 B@90,195/9#7" },
    LayoutRow { "Larger", u"</f 20,b, , , ,255>X<\\f>Y", { 490, 210 },
                u"X@90,15/20b#255 Y@310,15/9#7" },
    LayoutRow { "LargerThenReturn", u"</f 20, , , , ,1>A\rB", { 380, 390 },
                u"A@90,15/20#1 B@90,195/20#1" },
    LayoutRow { "F9", u"</fig 11,b, , , ,255>F9<\\f>", { 422, 210 },
                u"F@90,15/11b#255 9@211,15/11b#255" },
    LayoutRow { "EndsInTag", u"AB</f 11,b", { 360, 210 }, u"A@90,15/9#7 B@180,15/9#7" },
    LayoutRow { "MissingFields", u"</f >Z", { 190, 210 }, u"Z@90,15/1#0" },
    LayoutRow { "ExactLetters", u"</f 9,B,i,U,s,3>Q", { 270, 210 }, u"Q@90,15/9is#3" },
    LayoutRow { "Clamped", u"</f 10000, , , , ,1>W<\\f></f x, , , , ,1>V", { 910, 210 },
                u"W@90,15/72#1 V@810,15/1#1" },
    LayoutRow { "BadColour", u"</f 9, , , , ,16777216>C", { 270, 210 }, u"C@90,15/9#7" },
    LayoutRow { "NoFace", u"M", { 270, 210 }, u"M@90,15/9~MS Sans Serif#7", u"Nowhere" }),
    [](const auto &row) { return std::string(row.param.name); });
// clang-format on

// "Yes" and true alike switch an attribute on; a size that overflows gives no tag. (The tag's
// format is the Settings tip's, checked on the Main window.)
TEST(TipMarkup, FontTagsTakeYesOrTrueAndNoOverflow)
{
    TipStyle style;
    EXPECT_EQ(MakeFontTag(style, u"x"_s, 0, u"Yes"_s, u"Yes"_s, u"No"_s, true, 0),
              u"</f 9,b,i, ,s,0>x<\\f>"_s);
    style.fontSize = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(MakeFontTag(style, u"x"_s, 1, true, true, true, true, 0), QString());
    style.fontSize = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(MakeFontTag(style, u"x"_s, -1, true, true, true, true, 0), QString());
}

struct PlaceRow
{
    const char *name;
    QPoint pointer;
    bool near;
    QPoint expected;
};

using PlacementTable = ::testing::TestWithParam<PlaceRow>;

// A tooltip of 3000 x 600 twips on a 1280 x 800 screen (19200 x 12000 twips), and the same on
// a second screen to the right of the first.
TEST_P(PlacementTable, StaysOnTheScreen)
{
    const PlaceRow &row = GetParam();
    for (const int left : { 0, 19200 })
        EXPECT_EQ(TipPlacement::place(row.pointer + QPoint(left, 0), { 3000, 600 },
                                      { left, 0, 19200, 12000 }, row.near),
                  row.expected + QPoint(left, 0));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(EdgesAndCorners, PlacementTable, ::testing::Values(
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
// clang-format on

} // namespace
