#include "windowing/WindowBehaviour.h"

#include "app/Program.h"
#include "windowing/Shadow.h"
#include "windowing/ShadowKeeper.h"
#include "windowing/TabAppForm.h"
#include "windowing/WindowGuard.h"

#include <QApplication>
#include <QFrame>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <memory>

namespace {

void sendMouse(QWidget *target, QEvent::Type type, QPoint local, Qt::MouseButton button,
               Qt::MouseButtons buttons)
{
    QMouseEvent event(type, QPointF(local), QPointF(target->mapToGlobal(local)), button, buttons,
                      Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

void hover(QWidget *target, QPoint local)
{
    sendMouse(target, QEvent::MouseMove, local, Qt::NoButton, Qt::NoButton);
}

void press(QWidget *target, QPoint local)
{
    sendMouse(target, QEvent::MouseButtonPress, local, Qt::LeftButton, Qt::LeftButton);
}

void heldMove(QWidget *target, QPoint local)
{
    sendMouse(target, QEvent::MouseMove, local, Qt::NoButton, Qt::LeftButton);
}

void release(QWidget *target, QPoint local)
{
    sendMouse(target, QEvent::MouseButtonRelease, local, Qt::LeftButton, Qt::NoButton);
}

// A borderless window laid out like the program's: a drag frame over the whole body and a close
// control on top of it.
struct TestWindow
{
    explicit TestWindow(const char *name = "CalendarMonthExtForm")
        : window(std::make_unique<QWidget>(nullptr, Qt::Window | Qt::FramelessWindowHint))
    {
        window->setObjectName(QString::fromLatin1(name));
        window->setFixedSize(400, 273);
        FrameMove = new QFrame(window.get());
        FrameMove->setObjectName(QStringLiteral("FrameMove"));
        FrameMove->setGeometry(window->rect());
        KnClose = new QPushButton(QStringLiteral("x"), window.get());
        KnClose->setObjectName(QStringLiteral("KnClose"));
        KnClose->setGeometry(374, 4, 22, 22);
    }
    std::unique_ptr<QWidget> window;
    QFrame *FrameMove = nullptr;
    QPushButton *KnClose = nullptr;
};

class WindowBehaviourFixture : public ::testing::Test
{
protected:
    void SetUp() override
    {
        program.ShadowMode = shadowsOn() ? QStringLiteral("Basic") : QStringLiteral("No");
        program.settings().Language = QStringLiteral("English");
        program.settings().AppTitleEnglish = QStringLiteral("QLV Calendar Lite");
        program.settings().AppTitleRussian = QStringLiteral("Календарь КЛВ Лайт");
        program.windowBehaviour().attachMainWindow(main.window.get(), main.FrameMove);
        main.window->move(Start);
        main.window->show();
        main.window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(main.window.get()));
    }

    virtual bool shadowsOn() const = 0;
    QWidget *window() const { return main.window.get(); }
    Shadow *shadow() const { return ShadowForm(main.window.get()); }
    WindowBehaviour &behaviour() { return program.windowBehaviour(); }

    void expectShadowBeneath()
    {
        if (!shadowsOn()) {
            EXPECT_EQ(shadow(), nullptr);
            return;
        }
        ASSERT_NE(shadow(), nullptr);
        EXPECT_TRUE(shadow()->isVisible());
        // 65 twips is 4 pixels to the nearest pixel.
        EXPECT_EQ(shadow()->geometry(), window()->geometry().translated(4, 4));
    }

    static constexpr QPoint Start { 200, 150 };
    Program program;
    TestWindow main;
};

// Every window behaves the same with and without a compositor, shadow or not.
class ShadowParamFixture : public WindowBehaviourFixture, public ::testing::WithParamInterface<bool>
{
protected:
    bool shadowsOn() const override { return GetParam(); }
};

using DragFixture = ShadowParamFixture;

TEST_P(DragFixture, PressMoveReleaseOnFrameMoveMovesTheWindowByTheDelta)
{
    const QPoint grab(120, 90);
    const QPoint grabOnScreen = main.FrameMove->mapToGlobal(grab);
    hover(main.FrameMove, grab);
    press(main.FrameMove, grab);
    heldMove(main.FrameMove, grab + QPoint(37, -21));
    EXPECT_EQ(window()->pos(), Start + QPoint(37, -21));
    expectShadowBeneath();
    // Events come in the frame's own coordinates, which travel with the window.
    const QPoint pointer = grabOnScreen + QPoint(-5, 60);
    heldMove(main.FrameMove, main.FrameMove->mapFromGlobal(pointer));
    release(main.FrameMove, main.FrameMove->mapFromGlobal(pointer));
    EXPECT_EQ(window()->pos(), Start + QPoint(-5, 60));
    EXPECT_EQ(main.FrameMove->mapToGlobal(grab), pointer);
    expectShadowBeneath();
}

TEST_P(DragFixture, AJumpOfMoreThan240PixelsIsIgnored)
{
    const QPoint grab(50, 50);
    hover(main.FrameMove, grab);
    press(main.FrameMove, grab);
    heldMove(main.FrameMove, grab + QPoint(241, 0));
    EXPECT_EQ(window()->pos(), Start);
    heldMove(main.FrameMove, grab + QPoint(240, 0));
    EXPECT_EQ(window()->pos(), Start + QPoint(240, 0));
    expectShadowBeneath();
}

TEST_P(DragFixture, PressOutsideTheDragAreaDoesNotDragFromAStaleGrab)
{
    hover(main.FrameMove, { 20, 200 });
    // The pointer goes to the close control and the button goes down there.
    QTest::mousePress(main.KnClose, Qt::LeftButton);
    heldMove(main.FrameMove, { 200, 100 });
    QTest::mouseMove(main.FrameMove, { 300, 120 });
    EXPECT_EQ(window()->pos(), Start);
    QTest::mouseRelease(main.KnClose, Qt::LeftButton);
    // A real drag afterwards starts from where it was grabbed.
    hover(main.FrameMove, { 100, 100 });
    press(main.FrameMove, { 100, 100 });
    heldMove(main.FrameMove, { 110, 103 });
    EXPECT_EQ(window()->pos(), Start + QPoint(10, 3));
}

TEST_P(DragFixture, MoveLockedStopsDraggingUntilTheButtonIsReleasedOnTheArea)
{
    behaviour().drag().MoveLocked = true;
    hover(main.FrameMove, { 100, 100 });
    press(main.FrameMove, { 100, 100 });
    heldMove(main.FrameMove, { 130, 100 });
    EXPECT_EQ(window()->pos(), Start);
    release(main.FrameMove, { 130, 100 });
    EXPECT_FALSE(behaviour().drag().MoveLocked);
    hover(main.FrameMove, { 130, 100 });
    press(main.FrameMove, { 130, 100 });
    heldMove(main.FrameMove, { 160, 100 });
    EXPECT_EQ(window()->pos(), Start + QPoint(30, 0));
}

TEST_P(DragFixture, AnInactiveWindowIsFocusedByTheFirstMoveAndMovedByTheNext)
{
    TestWindow other("AboutForm");
    other.window->move(700, 500);
    other.window->show();
    other.window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(other.window.get()));

    hover(main.FrameMove, { 100, 100 });
    press(main.FrameMove, { 100, 100 });
    heldMove(main.FrameMove, { 120, 100 });
    EXPECT_EQ(window()->pos(), Start);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    heldMove(main.FrameMove, { 125, 100 });
    EXPECT_EQ(window()->pos(), Start + QPoint(25, 0));
}

TEST_P(DragFixture, AMinimisedWindowDoesNotMove)
{
    hover(main.FrameMove, { 100, 100 });
    press(main.FrameMove, { 100, 100 });
    window()->setWindowState(Qt::WindowMaximized);
    const QPoint maximised = window()->pos();
    heldMove(main.FrameMove, { 130, 100 });
    EXPECT_EQ(window()->pos(), maximised);
}

INSTANTIATE_TEST_SUITE_P(Shadows, DragFixture, ::testing::Bool(), [](const auto &param) {
    return std::string(param.param ? "WithShadow" : "WithoutShadow");
});

using ShadowFixture = ShadowParamFixture;

TEST_P(ShadowFixture, ShadowExistsOnlyWhenShadowsAreOn)
{
    expectShadowBeneath();
    EXPECT_EQ(program.IsFormLoaded(QStringLiteral("Shadow"), true), shadowsOn());
    EXPECT_EQ(program.IsFormLoaded(QStringLiteral("Shadow"), false), shadowsOn());
    EXPECT_EQ(behaviour().ShadowLoaded(), shadowsOn());
    if (shadowsOn()) {
        Shadow *s = shadow();
        EXPECT_EQ(s->objectName(), QStringLiteral("Shadow"));
        EXPECT_TRUE(s->windowFlags().testFlag(Qt::WindowTransparentForInput));
        EXPECT_TRUE(s->windowFlags().testFlag(Qt::FramelessWindowHint));
        EXPECT_TRUE(s->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
        EXPECT_FALSE(s->testAttribute(Qt::WA_QuitOnClose));
        EXPECT_NEAR(s->windowOpacity(), 180 / 255.0, 0.01);
        EXPECT_EQ(s->ShadowColor(), 0x525252u);
        EXPECT_EQ(s->grab().toImage().pixelColor(5, 5), QColor(0x52, 0x52, 0x52));
    }
}

TEST_P(ShadowFixture, ShadowGoesWithTheWindowWhenMinimisedAndComesBack)
{
    program.windowBehaviour().tabApp()->minimise();
    EXPECT_TRUE(window()->isMinimized());
    if (shadowsOn()) {
        EXPECT_FALSE(shadow()->isVisible());
    }
    window()->showNormal();
    EXPECT_FALSE(window()->isMinimized());
    expectShadowBeneath();
}

TEST_P(ShadowFixture, ShadowFollowsCentringAndPlacement)
{
    centreWindow(window());
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    EXPECT_EQ(window()->geometry().center().x(), screen.center().x());
    expectShadowBeneath();
    window()->move(-30, -40);
    expectShadowBeneath();
}

TEST_P(ShadowFixture, UpkeepTimerSettlesOnItsIntervalAndBringsTheShadowBack)
{
    auto *timer = window()->findChild<QTimer *>(QStringLiteral("TimerSetShadow"));
    ASSERT_NE(timer, nullptr);
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 2500);
    if (shadowsOn())
        shadow()->hide();
    timer->setInterval(5);
    timer->start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return timer->interval() == 1610; }, 2000));
    expectShadowBeneath();
}

TEST_P(ShadowFixture, ShadowsSwitchWithTheSettingsAndTakeTheSchemeColour)
{
    program.settings().ShadowColor = 0x203040;
    program.ShadowMode = QStringLiteral("No");
    behaviour().applySettings();
    EXPECT_EQ(shadow(), nullptr);
    EXPECT_FALSE(program.IsFormLoaded(QStringLiteral("Shadow"), false));
    program.ShadowMode = QStringLiteral("Basic");
    behaviour().applySettings();
    ASSERT_NE(shadow(), nullptr);
    EXPECT_TRUE(shadow()->isVisible());
    EXPECT_EQ(shadow()->ShadowColor(), 0x203040u);
}

TEST_P(ShadowFixture, TopmostIsAppliedToTheWindowAndItsShadow)
{
    program.settings().CalendarTopmost = QStringLiteral("Yes");
    behaviour().applySettings();
    EXPECT_TRUE(window()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(window()->isVisible());
    if (shadowsOn()) {
        EXPECT_TRUE(shadow()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    }
    expectShadowBeneath();
    applyTopmost(window(), false);
    EXPECT_FALSE(window()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(window()->isVisible());
}

INSTANTIATE_TEST_SUITE_P(Shadows, ShadowFixture, ::testing::Bool(), [](const auto &param) {
    return std::string(param.param ? "WithShadow" : "WithoutShadow");
});

class GuardFixture : public WindowBehaviourFixture
{
protected:
    bool shadowsOn() const override { return false; }
    WindowGuard *guard() const { return window()->findChild<WindowGuard *>(); }
};

TEST_F(GuardFixture, TimerEnableFormGivesTheWindowItsInputBack)
{
    ASSERT_NE(guard(), nullptr);
    EXPECT_FALSE(guard()->TimerEnableForm->isActive());
    EXPECT_EQ(guard()->TimerEnableForm->interval(), 1500);
    guard()->TimerEnableForm->setInterval(10);
    guard()->disableForAWhile();
    EXPECT_FALSE(window()->isEnabled());
    EXPECT_TRUE(QTest::qWaitFor([&] { return window()->isEnabled(); }, 2000));
    EXPECT_FALSE(guard()->TimerEnableForm->isActive());
}

TEST_F(GuardFixture, TimerKeyUpStartsOnAKeyAndItsTickLiftsTheDragLock)
{
    EXPECT_FALSE(guard()->TimerKeyUp->isActive());
    EXPECT_EQ(guard()->TimerKeyUp->interval(), 1500);
    int timeouts = 0;
    QObject::connect(guard(), &WindowGuard::keyUpTimedOut, [&] { ++timeouts; });
    main.KnClose->setFocus();
    QTest::keyPress(main.KnClose, Qt::Key_A);
    EXPECT_TRUE(guard()->TimerKeyUp->isActive());
    behaviour().drag().MoveLocked = true;
    guard()->TimerKeyUp->setInterval(10);
    guard()->keyDown();
    EXPECT_TRUE(QTest::qWaitFor([&] { return timeouts == 1; }, 2000));
    EXPECT_FALSE(behaviour().drag().MoveLocked);
    EXPECT_FALSE(guard()->TimerKeyUp->isActive());
}

TEST_F(GuardFixture, AttentionBlinksTheCloseControlAndPutsItsLookBack)
{
    main.KnClose->setStyleSheet(QStringLiteral("color: red;"));
    int lit = 0;
    int dark = 0;
    Attention(main.KnClose, 3, 0x80FFFF);
    QString last;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            const QString now = main.KnClose->styleSheet();
            if (now != last) {
                (now.contains(QStringLiteral("#ffff80")) ? lit : dark) += 1;
                last = now;
            }
            return !main.KnClose->findChild<QObject *>(QStringLiteral("Attention"));
        },
        3000));
    EXPECT_EQ(lit, 3);
    EXPECT_EQ(dark, 3);
    EXPECT_EQ(main.KnClose->styleSheet(), QStringLiteral("color: red;"));
}

struct CaptionRow
{
    const char *language;
    const char *caption;
};

class CaptionFixture : public GuardFixture, public ::testing::WithParamInterface<CaptionRow>
{ };

TEST_P(CaptionFixture, TaskbarCaptionFollowsTheLanguage)
{
    program.settings().Language = QString::fromLatin1(GetParam().language);
    TabAppForm *tab = behaviour().tabApp();
    ASSERT_NE(tab, nullptr);
    EXPECT_EQ(tab->objectName(), QStringLiteral("TabAppForm"));
    EXPECT_TRUE(program.IsFormLoaded(QStringLiteral("TabAppForm"), false));
    tab->refreshCaption();
    EXPECT_EQ(window()->windowTitle(), QString::fromUtf8(GetParam().caption));
}

INSTANTIATE_TEST_SUITE_P(Languages, CaptionFixture,
                         ::testing::Values(CaptionRow { "English", "QLV Calendar Lite" },
                                           CaptionRow { "Russian", "Календарь КЛВ Лайт" },
                                           CaptionRow { "english", "Календарь КЛВ Лайт" }));

TEST_F(GuardFixture, FocusGoesBackToTheLastActiveProgramWindow)
{
    TestWindow about("AboutForm");
    about.window->move(700, 400);
    about.window->show();
    about.window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(about.window.get()));
    TestWindow stranger("SomethingElse");
    stranger.window->show();
    stranger.window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(stranger.window.get()));

    TabAppForm *tab = behaviour().tabApp();
    EXPECT_EQ(tab->lastActiveWindow(), about.window.get());
    tab->giveFocusBack();
    EXPECT_TRUE(QTest::qWaitForWindowActive(about.window.get()));
    // The click that brought the window back does not drag it.
    EXPECT_TRUE(behaviour().drag().MoveLocked);
    EXPECT_TRUE(tab->TimerLockMoveForm->isActive());
}

} // namespace
