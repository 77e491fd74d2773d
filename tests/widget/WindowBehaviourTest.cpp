#include "windowing/WindowBehaviour.h"

#include "app/ProgramState.h"
#include "windowing/Shadow.h"
#include "windowing/TabAppForm.h"
#include "windowing/WindowGuard.h"

#include <QApplication>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <memory>

namespace {

void mouse(QWidget *target, QEvent::Type type, QPoint local, Qt::MouseButtons buttons)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, QPointF(local), QPointF(target->mapToGlobal(local)), button, buttons,
                      Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

// A button-free move, then press, held moves and release, all on `area`, in its coordinates.
void drag(QWidget *area, QPoint from, std::initializer_list<QPoint> by)
{
    mouse(area, QEvent::MouseMove, from, Qt::NoButton);
    mouse(area, QEvent::MouseButtonPress, from, Qt::LeftButton);
    const QPoint grab = area->mapToGlobal(from);
    for (const QPoint d : by)
        mouse(area, QEvent::MouseMove, area->mapFromGlobal(grab + d), Qt::LeftButton);
    mouse(area, QEvent::MouseButtonRelease, area->mapFromGlobal(grab + *(by.end() - 1)), {});
}

// A borderless window laid out like the program's: a drag frame over the whole body, a caption
// on it that drags too, and a close control that does not.
struct TestWindow
{
    explicit TestWindow(const char *name)
    {
        window->setObjectName(QString::fromLatin1(name));
        window->setFixedSize(400, 273);
        FrameMove->setGeometry(window->rect());
        Caption->setGeometry(8, 4, 236, 26);
        KnClose->setGeometry(374, 4, 22, 22);
    }
    std::unique_ptr<QWidget> window =
        std::make_unique<QWidget>(nullptr, Qt::Window | Qt::FramelessWindowHint);
    QFrame *FrameMove = new QFrame(window.get());
    QLabel *Caption = new QLabel(QStringLiteral("November"), window.get());
    QPushButton *KnClose = new QPushButton(QStringLiteral("x"), window.get());
};

// The Main window's behaviour, with shadows on (a compositor) or off.
class Behaviour : public ::testing::TestWithParam<bool>
{
protected:
    void SetUp() override
    {
        program.ShadowMode = GetParam() ? QStringLiteral("Basic") : QStringLiteral("No");
        program.settings().ShadowColor = 0x525252;
        behaviour().attachMainWindow(window(), main.FrameMove);
        behaviour().addDragArea(window(), main.Caption);
        window()->move(Start);
        window()->show();
        window()->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    }
    QWidget *window() const { return main.window.get(); }
    Shadow *shadow() const { return ShadowForm(window()); }
    WindowBehaviour &behaviour() { return WindowBehaviour::of(program); }
    void expectShadowBeneath()
    {
        ASSERT_EQ(shadow() != nullptr, GetParam());
        if (GetParam()) {
            EXPECT_TRUE(shadow()->isVisible());
            // 65 twips is 4 pixels to the nearest pixel.
            EXPECT_EQ(shadow()->geometry(), window()->geometry().translated(4, 4));
        }
    }

    static constexpr QPoint Start { 200, 150 };
    ProgramState program;
    TestWindow main { "CalendarMonthExtForm" };
};

TEST_P(Behaviour, TheFrameAndTheCaptionDragTheWindowByThePointersWay)
{
    drag(main.FrameMove, { 120, 90 }, { { 37, -21 }, { -5, 60 } });
    EXPECT_EQ(window()->pos(), Start + QPoint(-5, 60));
    expectShadowBeneath();
    drag(main.Caption, { 50, 10 }, { { 20, 3 } });
    EXPECT_EQ(window()->pos(), Start + QPoint(15, 63));
    expectShadowBeneath();
}

TEST_P(Behaviour, APressOffTheDragAreasDoesNotDragFromAStaleGrab)
{
    mouse(main.FrameMove, QEvent::MouseMove, { 20, 200 }, Qt::NoButton);
    QTest::mousePress(main.KnClose, Qt::LeftButton);
    mouse(main.FrameMove, QEvent::MouseMove, { 200, 100 }, Qt::LeftButton);
    EXPECT_EQ(window()->pos(), Start);
    QTest::mouseRelease(main.KnClose, Qt::LeftButton);
}

TEST_P(Behaviour, MoveLockedHoldsTheWindowUntilTheButtonIsReleasedOnTheArea)
{
    behaviour().drag().MoveLocked = true;
    drag(main.FrameMove, { 100, 100 }, { { 30, 0 } });
    EXPECT_EQ(window()->pos(), Start);
    EXPECT_FALSE(behaviour().drag().MoveLocked);
    drag(main.FrameMove, { 100, 100 }, { { 30, 0 } });
    EXPECT_EQ(window()->pos(), Start + QPoint(30, 0));
}

TEST_P(Behaviour, AnInactiveOrMaximisedWindowDoesNotMove)
{
    TestWindow other("AboutForm");
    other.window->show();
    other.window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(other.window.get()));
    drag(main.FrameMove, { 100, 100 }, { { 20, 0 } });
    EXPECT_EQ(window()->pos(), Start);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window())) << "the first move gives the focus";
    window()->setWindowState(Qt::WindowMaximized);
    const QPoint maximised = window()->pos();
    drag(main.FrameMove, { 100, 100 }, { { 20, 0 } });
    EXPECT_EQ(window()->pos(), maximised);
}

TEST_P(Behaviour, TheShadowIsGreyTranslucentAndFollowsCentringAndMoves)
{
    EXPECT_EQ(behaviour().ShadowLoaded(), GetParam());
    EXPECT_EQ(program.IsFormLoaded(QStringLiteral("Shadow"), false), GetParam());
    if (GetParam()) {
        EXPECT_NEAR(shadow()->windowOpacity(), 180 / 255.0, 0.01);
        EXPECT_EQ(shadow()->grab().toImage().pixelColor(5, 5), QColor(0x52, 0x52, 0x52));
    }
    centreWindow(window());
    EXPECT_EQ(window()->geometry().center(), QGuiApplication::primaryScreen()->geometry().center());
    expectShadowBeneath();
    window()->move(-30, -40);
    expectShadowBeneath();
}

// Restored through the taskbar or the window manager, the window gets the focus back, the shadow
// comes back, and the click that restored it does not drag it.
TEST_P(Behaviour, MinimisingHidesTheShadowAndRestoringGivesTheFocusBackLockingTheDrag)
{
    TestWindow stranger("SomethingElse");
    behaviour().tabApp()->minimise();
    EXPECT_TRUE(window()->isMinimized());
    EXPECT_FALSE(GetParam() && shadow()->isVisible());
    stranger.window->show();
    stranger.window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(stranger.window.get()));
    window()->showNormal();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window()));
    EXPECT_TRUE(behaviour().drag().MoveLocked);
    EXPECT_TRUE(behaviour().tabApp()->TimerLockMoveForm->isActive());
    expectShadowBeneath();
    // Minimised by the window manager (a taskbar click) rather than by the program's button.
    window()->showMinimized();
    EXPECT_FALSE(GetParam() && shadow()->isVisible());
}

// Black (0) is a colour like any other, for a new shadow as for one that is there.
TEST_P(Behaviour, SavedSettingsSwitchShadowsTopmostAndTheColour)
{
    program.settings().ShadowColor = 0;
    program.settings().CalendarTopmost = QStringLiteral("Yes");
    if (Shadow *old = shadow())
        old->setShadowColor(0x203040);
    behaviour().applySettings();
    EXPECT_TRUE(window()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    expectShadowBeneath();
    if (GetParam()) {
        EXPECT_EQ(shadow()->ShadowColor(), 0u);
        EXPECT_TRUE(shadow()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    }
    program.ShadowMode = QStringLiteral("No");
    behaviour().applySettings();
    EXPECT_EQ(shadow(), nullptr);
    program.ShadowMode = QStringLiteral("Basic");
    behaviour().applySettings();
    ASSERT_NE(shadow(), nullptr);
    EXPECT_EQ(shadow()->ShadowColor(), 0u);
}

TEST_P(Behaviour, TimerKeyUpEndsAKeyDownOnlyWhenNoKeyComesAndLiftsTheDragLock)
{
    auto *guard = window()->findChild<WindowGuard *>();
    int timeouts = 0;
    QObject::connect(guard, &WindowGuard::keyUpTimedOut, [&] { ++timeouts; });
    main.KnClose->setFocus();
    QTest::keyPress(main.KnClose, Qt::Key_A);
    QTest::qWait(300);
    // A held key repeats its press: that is no missing release.
    QKeyEvent repeat(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(main.KnClose, &repeat);
    EXPECT_GT(guard->TimerKeyUp->remainingTime(), 1300);
    behaviour().drag().MoveLocked = true;
    guard->TimerKeyUp->start(10);
    EXPECT_TRUE(QTest::qWaitFor([&] { return timeouts == 1; }, 2000));
    EXPECT_FALSE(behaviour().drag().MoveLocked);
}

INSTANTIATE_TEST_SUITE_P(Shadows, Behaviour, ::testing::Bool(), [](const auto &param) {
    return std::string(param.param ? "WithShadow" : "WithoutShadow");
});

} // namespace
