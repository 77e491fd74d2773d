#include "windowing/DragMath.h"

#include "app/ProgramState.h"
#include "settings_window/ViewFormLayout.h"
#include "windowing/Placement.h"

#include <QPoint>
#include <QString>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class FakePointer : public PointerSource
{
public:
    QPointF globalPosition() const override { return atPixels; }
    void atTwips(QPoint twips) { atPixels = QPointF(twips) / 15.0; }
    QPointF atPixels;
};

class FakeWindow : public DragWindow
{
public:
    QPoint topLeftTwips() const override { return at; }
    void moveToTwips(QPoint topLeft) override { at = topLeft; }
    QPoint at;
};

class FakeShadow : public DragShadow
{
public:
    void moveToTwips(QPoint topLeft) override { at = topLeft; }
    void putBeneathOwner() override { ++restacks; }
    QPoint at { -1, -1 };
    int restacks = 0;
};

const QPoint Start { 1500, 3000 };
const QPoint Grab { 2250, 3750 };

struct DragRow
{
    std::string name;
    std::vector<QPoint> pointer; // pointer at each held move, relative to the grab point
    std::vector<QPoint> expected; // window after each move, relative to where it started
    QPoint start = Start; // twips
    QPoint grab = Grab; // pointer, screen twips
};

// clang-format off
const DragRow DragRows[] = {
    { "Exactly3600BothAxes",          { { 3600, -3600 } }, { { 3600, -3600 } } },
    { "Jump3601RightIgnored",         { { 3601, 0 } },     { { 0, 0 } } },
    { "Jump3601UpIgnored",            { { 0, -3601 } },    { { 0, 0 } } },
    { "OneAxisOverTheLimitStopsBoth", { { 15, 3601 } },    { { 0, 0 } } },
    // Each event is measured from the grab point afresh, so many small steps go as far as the
    // pointer does and a glitch is caught up by the next step.
    { "LongDragOfSmallSteps",  { { 3000, 0 }, { 6000, 0 }, { 9000, 3000 } }, { { 3000, 0 }, { 6000, 0 }, { 9000, 3000 } } },
    { "GlitchThenCatchUp",     { { 150, 0 }, { 4650, 0 }, { 300, 150 } },    { { 150, 0 }, { 150, 0 }, { 300, 150 } } },
    { "NegativeScreenPositions", { { -300, -300 }, { -600, 0 } }, { { -300, -300 }, { -600, 0 } }, { -3000, -1500 }, { -2000, -1000 } },
    { "PointerBetweenPixels",  { { 7, 8 } }, { { 7, 8 } } },
};
// clang-format on

using DragStepTable = ::testing::TestWithParam<std::tuple<DragRow, bool>>;

TEST_P(DragStepTable, WindowFollowsThePointerAndTheShadowFollowsTheWindow)
{
    const auto &[row, withShadow] = GetParam();
    DragState state;
    FakePointer pointer;
    FakeWindow window;
    FakeShadow shadow;
    window.at = row.start;
    DragShadow *shadowPart = withShadow ? &shadow : nullptr;
    pointer.atTwips(row.grab);
    EXPECT_FALSE(DragStep(state, pointer, window, DragGrab, shadowPart, ShadowOffsetTwips));
    EXPECT_EQ(window.at, row.start);
    for (size_t i = 0; i < row.pointer.size(); ++i) {
        pointer.atTwips(row.grab + row.pointer[i]);
        const QPoint before = window.at;
        const bool moved =
            DragStep(state, pointer, window, DragMove, shadowPart, ShadowOffsetTwips);
        EXPECT_EQ(window.at, row.start + row.expected[i]) << "event " << i;
        EXPECT_EQ(moved, window.at != before) << "event " << i;
        if (withShadow) {
            EXPECT_EQ(shadow.at, window.at + QPoint(65, 65)) << "event " << i;
        }
    }
    // One restack per drag, however many events it has.
    EXPECT_EQ(shadow.restacks, withShadow ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Drags, DragStepTable,
                         ::testing::Combine(::testing::ValuesIn(DragRows), ::testing::Bool()),
                         [](const auto &param) {
                             return std::get<0>(param.param).name
                                 + (std::get<1>(param.param) ? "_Shadow" : "_NoShadow");
                         });

class DragStepPhases : public ::testing::Test
{
protected:
    DragStepPhases() { window.at = Start; }
    void step(int phase, QPoint pointerFromGrab)
    {
        pointer.atTwips(Grab + pointerFromGrab);
        DragStep(state, pointer, window, phase, &shadow, ShadowOffsetTwips);
    }
    DragState state;
    FakePointer pointer;
    FakeWindow window;
    FakeShadow shadow;
};

TEST_F(DragStepPhases, ANewGrabStartsANewDragThatRestacksAgainButARecordDoesNot)
{
    step(DragGrab, { 0, 0 });
    step(DragMove, { 30, 30 });
    step(DragRecord, { 30, 30 });
    step(DragMove, { 45, 30 });
    EXPECT_EQ(shadow.restacks, 1);
    step(DragGrab, { 60, 60 });
    step(DragMove, { 90, 90 });
    EXPECT_EQ(shadow.restacks, 2);
    EXPECT_EQ(window.at, Start + QPoint(75, 60));
}

struct PlaceRow
{
    const char *name;
    QPoint storedTwips;
    QList<QRect> screens; // the primary first
    QPoint expected; // pixels
};

using Placements = ::testing::TestWithParam<PlaceRow>;

// A 400x273 window at its stored place, pulled back only as far as needed to be fully on the
// screen that shows most of it.
TEST_P(Placements, KeepTheWindowWhollyOnAScreen)
{
    EXPECT_EQ(Placement::keptOnScreen(GetParam().storedTwips, { 400, 273 }, GetParam().screens),
              GetParam().expected);
}

const QRect Primary { 0, 0, 1280, 800 };
const QRect RightOfIt { 1280, 0, 1920, 1080 };

// clang-format off
INSTANTIATE_TEST_SUITE_P(Rows, Placements, ::testing::Values(
    PlaceRow { "OnScreen",                   { 1500, 1500 },   { Primary },            { 100, 100 } },
    PlaceRow { "PastTheRightAndBottom",      { 30000, 30000 }, { Primary },            { 880, 527 } },
    PlaceRow { "Negative",                   { -4500, -15 },   { Primary },            { 0, 0 } },
    PlaceRow { "OnTheSecondMonitor",         { 30000, 7500 },  { Primary, RightOfIt }, { 2000, 500 } },
    PlaceRow { "PartlyPastTheSecondMonitor", { 45000, 15000 }, { Primary, RightOfIt }, { 2800, 807 } },
    PlaceRow { "MostlyOnTheSecond",          { 18000, 0 },     { Primary, RightOfIt }, { 1280, 0 } },
    PlaceRow { "NoScreenShowsItPrimaryTakesIt", { 90000, 0 },  { Primary, RightOfIt }, { 880, 0 } },
    PlaceRow { "FarLeft",                    { -90000, 0 },    { Primary, RightOfIt }, { 0, 0 } }),
    [](const auto &row) { return std::string(row.param.name); });
// clang-format on

struct BesideRow
{
    const char *name;
    QRect mainWindow;
    QRect screen;
    QPoint expected;
    QSize size = { 360, 273 };
    int gap = 8;
    Placement::NoRoom noRoom = Placement::NoRoom::OverTheAnchor;
};

using BesidePlacements = ::testing::TestWithParam<BesideRow>;

// A window opened beside the Main window (the About window 8 pixels off it, the Settings window
// 12), always wholly on the screen.
TEST_P(BesidePlacements, OpenBesideTheMainWindow)
{
    const BesideRow &row = GetParam();
    EXPECT_EQ(Placement::besideTopLeft(row.mainWindow, row.size, row.screen, row.gap, row.noRoom),
              row.expected);
}

const QSize Settings { ViewFormLayout::Width, ViewFormLayout::Height };
constexpr Placement::NoRoom Centre = Placement::NoRoom::ScreenCentre;

// clang-format off
INSTANTIATE_TEST_SUITE_P(Rows, BesidePlacements, ::testing::Values(
    BesideRow { "RightWhenThereIsRoom", { 100, 100, 400, 273 }, Primary, { 508, 100 } },
    BesideRow { "RightJustFits", { 512, 0, 400, 273 }, Primary, { 920, 0 } },
    BesideRow { "LeftWhenTheRightIsOneShort", { 513, 0, 400, 273 }, Primary, { 145, 0 } },
    BesideRow { "OverItWhenNeitherSideHasRoom", { 150, 0, 400, 273 }, { 0, 0, 700, 500 }, { 170, 0 } },
    BesideRow { "TopKeptOnTheScreen", { 100, 700, 400, 273 }, Primary, { 508, 527 } },
    BesideRow { "SettingsRight", { 100, 100, 400, 273 }, Primary, { 512, 100 }, Settings, ViewFormLayout::Gap, Centre },
    BesideRow { "SettingsLeft", { 860, 100, 400, 273 }, Primary, { 528, 100 }, Settings, ViewFormLayout::Gap, Centre },
    BesideRow { "SettingsCentredOnTheScreen", { 10, 100, 1260, 273 }, Primary, { 480, 247 }, Settings, ViewFormLayout::Gap, Centre },
    BesideRow { "SettingsTopKept", { 100, 700, 400, 273 }, Primary, { 512, 494 }, Settings, ViewFormLayout::Gap, Centre }),
    [](const auto &row) { return std::string(row.param.name); });
// clang-format on

struct ModeRow
{
    bool layered;
    const char *platform;
    const char *mode;
};

using ShadowModeTable = ::testing::TestWithParam<ModeRow>;

TEST_P(ShadowModeTable, ShadowsNeedACompositorAndAPlaceableWindow)
{
    EXPECT_EQ(DecideShadowMode(GetParam().layered, QString::fromLatin1(GetParam().platform)),
              QString::fromLatin1(GetParam().mode));
}

INSTANTIATE_TEST_SUITE_P(Values, ShadowModeTable,
                         ::testing::Values(ModeRow { true, "xcb", "Basic" },
                                           ModeRow { false, "xcb", "No" },
                                           ModeRow { true, "wayland-egl", "No" },
                                           ModeRow { false, "offscreen", "No" }));

} // namespace
