#include "windowing/DragMath.h"

#include "windowing/WindowBehaviour.h"

#include <QPoint>
#include <QString>

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

constexpr double TwipsPerPixelF = 15.0;

class FakePointer : public PointerSource
{
public:
    QPointF globalPosition() const override { return atPixels; }
    void atTwips(QPoint twips) { atPixels = QPointF(twips) / TwipsPerPixelF; }
    QPointF atPixels;
};

class FakeWindow : public DragWindow
{
public:
    QPoint topLeftTwips() const override { return at; }
    void moveToTwips(QPoint topLeft) override
    {
        at = topLeft;
        ++moves;
    }
    QPoint at;
    int moves = 0;
};

class FakeShadow : public DragShadow
{
public:
    void moveToTwips(QPoint topLeft) override { at = topLeft; }
    void putBeneathOwner() override { ++restacks; }
    QPoint at { -1, -1 };
    int restacks = 0;
};

struct DragRow
{
    std::string name;
    QPoint windowStart; // twips
    QPoint grab; // pointer, screen twips
    std::vector<QPoint> pointer; // pointer at each held move, screen twips
    std::vector<QPoint> expected; // window after each move, twips
};

const QPoint Start { 1500, 3000 };
const QPoint Grab { 2250, 3750 };

QPoint grabPlus(int dx, int dy)
{
    return Grab + QPoint(dx, dy);
}

QPoint startPlus(int dx, int dy)
{
    return Start + QPoint(dx, dy);
}

std::vector<DragRow> dragRows()
{
    return {
        { "SmallStep", Start, Grab, { grabPlus(150, 150) }, { startPlus(150, 150) } },
        { "Exactly3600Right", Start, Grab, { grabPlus(3600, 0) }, { startPlus(3600, 0) } },
        { "Jump3601RightIgnored", Start, Grab, { grabPlus(3601, 0) }, { Start } },
        { "Exactly3600Up", Start, Grab, { grabPlus(0, -3600) }, { startPlus(0, -3600) } },
        { "Jump3601UpIgnored", Start, Grab, { grabPlus(0, -3601) }, { Start } },
        { "Exactly3600Left", Start, Grab, { grabPlus(-3600, 0) }, { startPlus(-3600, 0) } },
        { "Jump3601LeftIgnored", Start, Grab, { grabPlus(-3601, 0) }, { Start } },
        { "Exactly3600Down", Start, Grab, { grabPlus(0, 3600) }, { startPlus(0, 3600) } },
        { "Jump3601DownIgnored", Start, Grab, { grabPlus(0, 3601) }, { Start } },
        { "Exactly3600BothAxes",
          Start,
          Grab,
          { grabPlus(3600, -3600) },
          { startPlus(3600, -3600) } },
        { "OneAxisOverTheLimitStopsBoth", Start, Grab, { grabPlus(3601, 15) }, { Start } },
        { "SeveralEventsInARow",
          Start,
          Grab,
          { grabPlus(150, 0), grabPlus(450, 150), grabPlus(300, -150), grabPlus(-600, -750) },
          { startPlus(150, 0), startPlus(450, 150), startPlus(300, -150), startPlus(-600, -750) } },
        // Each event is measured against where the window already is, so a long drag made of
        // small steps goes as far as the pointer does.
        { "LongDragOfSmallSteps",
          Start,
          Grab,
          { grabPlus(3000, 0), grabPlus(6000, 0), grabPlus(9000, 3000) },
          { startPlus(3000, 0), startPlus(6000, 0), startPlus(9000, 3000) } },
        { "GlitchThenTheNextStepCatchesUp",
          Start,
          Grab,
          { grabPlus(150, 0), grabPlus(4650, 0), grabPlus(300, 150) },
          { startPlus(150, 0), startPlus(150, 0), startPlus(300, 150) } },
        { "NegativeScreenPositions",
          { -3000, -1500 },
          { -2000, -1000 },
          { { -2300, -1300 }, { -2600, -1000 } },
          { { -3300, -1800 }, { -3600, -1500 } } },
        { "PointerBetweenPixels", Start, Grab, { grabPlus(7, 8) }, { startPlus(7, 8) } },
    };
}

class DragStepTable : public ::testing::TestWithParam<std::tuple<DragRow, bool>>
{ };

TEST_P(DragStepTable, WindowFollowsThePointerAndTheShadowFollowsTheWindow)
{
    const auto &[row, withShadow] = GetParam();
    DragState state;
    FakePointer pointer;
    FakeWindow window;
    FakeShadow shadow;
    window.at = row.windowStart;
    DragShadow *shadowPart = withShadow ? &shadow : nullptr;

    pointer.atTwips(row.grab);
    EXPECT_FALSE(DragStep(state, pointer, window, DragGrab, shadowPart, ShadowOffsetTwips));
    EXPECT_EQ(window.moves, 0);
    EXPECT_EQ(state.GrabX, row.grab.x() - row.windowStart.x());
    EXPECT_EQ(state.GrabY, row.grab.y() - row.windowStart.y());

    ASSERT_EQ(row.pointer.size(), row.expected.size());
    for (size_t i = 0; i < row.pointer.size(); ++i) {
        pointer.atTwips(row.pointer[i]);
        const QPoint before = window.at;
        const bool moved =
            DragStep(state, pointer, window, DragMove, shadowPart, ShadowOffsetTwips);
        EXPECT_EQ(window.at, row.expected[i]) << "event " << i;
        EXPECT_EQ(moved, row.expected[i] != before) << "event " << i;
        if (withShadow) {
            EXPECT_EQ(shadow.at, window.at + QPoint(65, 65)) << "event " << i;
        }
    }
    // One restack per drag, however many events it has.
    EXPECT_EQ(shadow.restacks, withShadow ? 1 : 0);
    EXPECT_EQ(state.ShadowRestacked, withShadow);
}

INSTANTIATE_TEST_SUITE_P(Drags, DragStepTable,
                         ::testing::Combine(::testing::ValuesIn(dragRows()), ::testing::Bool()),
                         [](const auto &param) {
                             return std::get<0>(param.param).name
                                 + (std::get<1>(param.param) ? "_Shadow" : "_NoShadow");
                         });

class DragStepPhases : public ::testing::Test
{
protected:
    DragState state;
    FakePointer pointer;
    FakeWindow window;
    FakeShadow shadow;
};

TEST_F(DragStepPhases, ANewGrabStartsANewDragThatRestacksAgain)
{
    window.at = Start;
    pointer.atTwips(Grab);
    DragStep(state, pointer, window, DragGrab, &shadow, ShadowOffsetTwips);
    pointer.atTwips(grabPlus(30, 30));
    DragStep(state, pointer, window, DragMove, &shadow, ShadowOffsetTwips);
    // Button released, pointer moves on without it: a fresh grab.
    pointer.atTwips(grabPlus(60, 60));
    DragStep(state, pointer, window, DragGrab, &shadow, ShadowOffsetTwips);
    EXPECT_FALSE(state.ShadowRestacked);
    pointer.atTwips(grabPlus(90, 90));
    DragStep(state, pointer, window, DragMove, &shadow, ShadowOffsetTwips);
    EXPECT_EQ(shadow.restacks, 2);
    EXPECT_EQ(window.at, startPlus(60, 60));
}

TEST_F(DragStepPhases, OtherPhasesRecordWithoutForgettingTheRestack)
{
    window.at = Start;
    state.ShadowRestacked = true;
    pointer.atTwips(grabPlus(45, -45));
    EXPECT_FALSE(DragStep(state, pointer, window, DragRecord, &shadow, ShadowOffsetTwips));
    EXPECT_EQ(state.GrabX, 795);
    EXPECT_EQ(state.GrabY, 705);
    EXPECT_TRUE(state.ShadowRestacked);
    EXPECT_EQ(window.moves, 0);
    EXPECT_EQ(shadow.restacks, 0);
}

TEST_F(DragStepPhases, AnOverflowingDifferenceLeavesTheWindowAlone)
{
    window.at = Start;
    state.GrabX = std::numeric_limits<std::int32_t>::min();
    state.GrabY = 0;
    pointer.atTwips(grabPlus(15, 0));
    EXPECT_FALSE(DragStep(state, pointer, window, DragMove, nullptr, ShadowOffsetTwips));
    EXPECT_EQ(window.at, Start);
}

TEST_F(DragStepPhases, PointerInWindowIsMeasuredFromTheWindowCorner)
{
    window.at = { 750, -300 };
    pointer.atPixels = { 100, 10 };
    EXPECT_EQ(GetPointerXInWindow(pointer, window), 750);
    EXPECT_EQ(GetPointerYInWindow(pointer, window), 450);
    pointer.atPixels = { -20.2, 0 };
    EXPECT_EQ(GetPointerXInWindow(pointer, window), -1053);
}

struct PixelRow
{
    std::int64_t twips;
    int pixels;
};

class NearestPixelTable : public ::testing::TestWithParam<PixelRow>
{ };

TEST_P(NearestPixelTable, RoundsToTheNearestPixelOnBothSidesOfZero)
{
    EXPECT_EQ(nearestPixel(GetParam().twips), GetParam().pixels);
}

INSTANTIATE_TEST_SUITE_P(Values, NearestPixelTable,
                         ::testing::Values(PixelRow { 0, 0 }, PixelRow { 7, 0 }, PixelRow { 8, 1 },
                                           PixelRow { 65, 4 }, PixelRow { 1565, 104 },
                                           PixelRow { -7, 0 }, PixelRow { -8, -1 },
                                           PixelRow { -85, -6 }, PixelRow { -1435, -96 }));

TEST(ShadowOffsetArithmetic, ShadowLiesTheSamePixelsAwayWhereverTheWindowIs)
{
    for (int left : { -3000, -15, 0, 15, 1500, 28785 }) {
        const QPoint shadow = shadowTopLeftTwips({ left, left }, ShadowOffsetTwips);
        EXPECT_EQ(shadow, QPoint(left + 65, left + 65));
        EXPECT_EQ(nearestPixel(shadow.x()) - left / 15, 4) << left;
    }
}

struct ModeRow
{
    bool layered;
    const char *platform;
    const char *mode;
};

class ShadowModeTable : public ::testing::TestWithParam<ModeRow>
{ };

TEST_P(ShadowModeTable, ShadowsNeedACompositorAndAPlaceableWindow)
{
    const ModeRow &row = GetParam();
    EXPECT_EQ(DecideShadowMode(row.layered, QString::fromLatin1(row.platform)),
              QString::fromLatin1(row.mode));
}

INSTANTIATE_TEST_SUITE_P(Values, ShadowModeTable,
                         ::testing::Values(ModeRow { true, "xcb", "Basic" },
                                           ModeRow { false, "xcb", "No" },
                                           ModeRow { true, "wayland", "No" },
                                           ModeRow { true, "wayland-egl", "No" },
                                           ModeRow { false, "offscreen", "No" }));

} // namespace
