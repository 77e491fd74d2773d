#include "MainFormFixture.h"

#include <QClipboard>
#include <QKeyEvent>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest/qtestspontaneevent.h>

#include <vector>

class Keys : public MainFormTest
{
protected:
    // Real key events in the order a keyboard sends them, to whatever has the focus.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::sendKeyEvent(QTest::Press, focused(), key, QString(), modifiers);
    }
    void release(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::sendKeyEvent(QTest::Release, focused(), key, QString(), modifiers);
    }
    // A held key on X11 repeats as release/press pairs, both marked auto-repeat.
    void repeat(Qt::Key key)
    {
        for (QEvent::Type type : { QEvent::KeyRelease, QEvent::KeyPress }) {
            QKeyEvent event(type, key, Qt::NoModifier, QString(), true);
            QSpontaneKeyEvent::setSpontaneous(&event);
            QApplication::sendEvent(focused(), &event);
        }
    }
    QWidget *focused() const
    {
        QWidget *w = QApplication::focusWidget();
        return w ? w : form.data();
    }
    bool closed() const { return !form || !form->isVisible(); }
};

TEST_F(Keys, CtrlReleasedBeforeNStillStartsANewCalendar)
{
    open(at(2026, 3, 12));
    QStringList started;
    form->startProgram = [&](const QString &path) { started.append(path); };
    program->ProgramFolder = QStringLiteral("/opt/qlv/");
    press(Qt::Key_Control, Qt::ControlModifier);
    press(Qt::Key_N, Qt::ControlModifier);
    release(Qt::Key_Control);
    release(Qt::Key_N);
    EXPECT_EQ(started, QStringList { QStringLiteral("/opt/qlv/qlvcallt") });
    EXPECT_EQ(QApplication::focusWidget(), button("ButtFocus"));

    press(Qt::Key_N);
    release(Qt::Key_N);
    EXPECT_EQ(started.size(), 1);
}

TEST_F(Keys, AltF4ClosesOnPressAndItsReleaseDoesNothingMore)
{
    open(at(2026, 3, 12));
    press(Qt::Key_F4, Qt::AltModifier);
    EXPECT_TRUE(closed());
}

TEST_F(Keys, HeldEscDoesNotCloseUntilReleased)
{
    open(at(2026, 3, 12));
    press(Qt::Key_Escape);
    EXPECT_EQ(QApplication::focusWidget(), button("KnOk"));
    for (int i = 0; i < 5; ++i)
        repeat(Qt::Key_Escape);
    EXPECT_FALSE(closed());
    release(Qt::Key_Escape);
    EXPECT_TRUE(closed());
}

TEST_F(Keys, EscWithTheMonthListDroppedDownOnlyEndsTheListState)
{
    open(at(2026, 3, 12));
    auto *months = child<QComboBox>(QStringLiteral("ListMonth"));
    months->setFocus();
    months->showPopup();
    QWidget *popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr);
    QTest::keyClick(popup, Qt::Key_Escape);
    EXPECT_FALSE(closed());
    EXPECT_FALSE(form->keys().ListEscFlag);
    EXPECT_EQ(shownMonth(), 3);

    press(Qt::Key_Escape);
    release(Qt::Key_Escape);
    EXPECT_TRUE(closed());
}

TEST_F(Keys, FunctionKeysAndLinksAskForTheirWindows)
{
    open(at(2026, 3, 12));
    QSignalSpy settings(form.data(), &CalendarMonthExtForm::settingsWindowRequested);
    QSignalSpy about(form.data(), &CalendarMonthExtForm::aboutWindowRequested);
    press(Qt::Key_F9);
    EXPECT_EQ(settings.count(), 0); // on release, not on press
    release(Qt::Key_F9);
    press(Qt::Key_F1);
    release(Qt::Key_F1);
    click(label("LabelSettings"));
    click(label("LabelAbout"));
    EXPECT_EQ(settings.count(), 2);
    EXPECT_EQ(about.count(), 2);
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

TEST_F(MainFormTest, MinimiseAndCloseButtons)
{
    open(at(2026, 3, 12));
    click(button("KnMin"));
    EXPECT_TRUE(form->isMinimized());
    form->showNormal();
    click(button("KnClose"));
    EXPECT_TRUE(!form || !form->isVisible());
}

TEST_F(MainFormTest, CommandsAreInertWhileTheWindowIsDisabled)
{
    open(at(2026, 3, 12));
    form->setEnabled(false);
    QTest::sendKeyEvent(QTest::Press, form.data(), Qt::Key_Q, QString(), Qt::AltModifier);
    EXPECT_TRUE(form->isVisible());
    form->setEnabled(true);
}

TEST_F(Keys, AReleaseThatComesTooLateDoesNothing)
{
    open(at(2026, 3, 12));
    QSignalSpy settings(form.data(), &CalendarMonthExtForm::settingsWindowRequested);
    press(Qt::Key_F9);
    ASSERT_TRUE(form->keys().KeyIsDown);
    // The key-up time-out ends the key-down on its own.
    for (int i = 0; i < 40 && form->keys().KeyIsDown; ++i)
        QTest::qWait(50);
    EXPECT_FALSE(form->keys().KeyIsDown);
    release(Qt::Key_F9);
    EXPECT_EQ(settings.count(), 0);
}

TEST_F(Keys, CtrlAltShiftIShowsTheAuthorLine)
{
    open(at(2026, 3, 12));
    QString shown;
    QTimer::singleShot(0, [&] {
        if (auto *box = QApplication::activeModalWidget()) {
            shown = box->objectName() + QLatin1Char(':') + static_cast<QMessageBox *>(box)->text();
            box->close();
        }
    });
    press(Qt::Key_I, Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_TRUE(shown.startsWith(QStringLiteral("AuthorMessage:QLV Calendar Lite")))
        << shown.toStdString();
    EXPECT_FALSE(closed());
}
