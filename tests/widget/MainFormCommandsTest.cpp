#include "MainFormFixture.h"

#include <QClipboard>
#include <QSignalSpy>
#include <QTimer>

// The key rules are a unit table; these check that the window runs what the table returns.

// F1 and the About link: the About window's own tests.
TEST_F(MainFormTest, F9AndTheSettingsLinkAskForTheSettingsWindow)
{
    open(at(2026, 3, 12));
    QSignalSpy settings(form.data(), &CalendarMonthExtForm::settingsWindowRequested);
    tap(Qt::Key_F9);
    click(label("LabelSettings"));
    EXPECT_EQ(settings.count(), 2);
}

TEST_F(MainFormTest, EnterClicksTheFocusedButtonAndAltQQuits)
{
    open(at(2026, 3, 12));
    button("ButtNextMonth")->setFocus();
    tap(Qt::Key_Return);
    EXPECT_EQ(shownMonth(), 4);
    EXPECT_FALSE(program->Closing);
    tap(Qt::Key_Q, Qt::AltModifier);
    EXPECT_TRUE(program->Closing);
    EXPECT_TRUE(closed());
}

TEST_F(MainFormTest, CopyPutsTheShortAndLongDateOnTheClipboard)
{
    open(at(2026, 3, 12));
    click(cellOf(QDate(2026, 3, 5)));
    click(button("KnCopy"));
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              QStringLiteral("3/5/2026  Thursday, March 5, 2026"));
    EXPECT_EQ(QApplication::focusWidget(), button("ButtFocus"));
}

TEST_F(MainFormTest, MinimiseAndCloseButtonsAreInertWhileTheWindowIsDisabled)
{
    open(at(2026, 3, 12));
    form->setEnabled(false);
    tap(Qt::Key_Q, Qt::AltModifier);
    EXPECT_FALSE(closed());
    form->setEnabled(true);
    click(button("KnMin"));
    EXPECT_TRUE(form->isMinimized());
    form->showNormal();
    click(button("KnClose"));
    EXPECT_TRUE(closed());
}

// The key-up time-out ends a key-down whose release never came: a late release does nothing.
TEST_F(MainFormTest, AReleaseAfterTheKeyUpTimeOutDoesNothing)
{
    open(at(2026, 3, 12));
    QSignalSpy settings(form.data(), &CalendarMonthExtForm::settingsWindowRequested);
    sendKey(QEvent::KeyPress, Qt::Key_F9);
    ASSERT_TRUE(form->keys().KeyIsDown);
    form->TimerKeyUp->start(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form->keys().KeyIsDown; }, 1000));
    sendKey(QEvent::KeyRelease, Qt::Key_F9);
    EXPECT_EQ(settings.count(), 0);
}
