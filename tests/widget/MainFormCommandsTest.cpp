#include "MainFormFixture.h"

#include <QClipboard>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTimer>

// The key rules are a unit table; these check that the window runs what the table returns.

TEST_F(MainFormTest, CtrlReleasedBeforeNStillStartsANewCalendar)
{
    open(at(2026, 3, 12));
    QStringList started;
    form->startProgram = [&](const QString &path) { started.append(path); };
    program->ProgramFolder = QStringLiteral("/opt/qlv/");
    sendKey(QEvent::KeyPress, Qt::Key_Control, Qt::ControlModifier);
    sendKey(QEvent::KeyPress, Qt::Key_N, Qt::ControlModifier);
    sendKey(QEvent::KeyRelease, Qt::Key_Control);
    sendKey(QEvent::KeyRelease, Qt::Key_N);
    EXPECT_EQ(started, QStringList { QStringLiteral("/opt/qlv/qlvcallt") });
    EXPECT_EQ(QApplication::focusWidget(), button("ButtFocus"));
}

TEST_F(MainFormTest, FunctionKeysAndLinksAskForTheirWindows)
{
    open(at(2026, 3, 12));
    QSignalSpy settings(form.data(), &CalendarMonthExtForm::settingsWindowRequested);
    QSignalSpy about(form.data(), &CalendarMonthExtForm::aboutWindowRequested);
    tap(Qt::Key_F9);
    tap(Qt::Key_F1);
    click(label("LabelSettings"));
    click(label("LabelAbout"));
    EXPECT_EQ(settings.count(), 2);
    EXPECT_EQ(about.count(), 2);
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

// The author box keeps its own keys: its Esc closes it alone, and the release that follows does
// not reach the calendar.
TEST_F(MainFormTest, TheAuthorBoxClosesOnEscAlone)
{
    open(at(2026, 3, 12));
    QString shown;
    bool boxStayed = false;
    QTimer::singleShot(0, [&] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            shown = box->objectName() + QLatin1Char(':') + box->text();
            QTest::keyPress(box, Qt::Key_Escape);
        }
    });
    QTimer::singleShot(300, [&] {
        if (QWidget *box = QApplication::activeModalWidget()) {
            boxStayed = true;
            box->close();
        }
    });
    sendKey(QEvent::KeyPress, Qt::Key_I, Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_TRUE(shown.startsWith(QStringLiteral("AuthorMessage:QLV Calendar Lite")))
        << shown.toStdString();
    EXPECT_FALSE(boxStayed);
    sendKey(QEvent::KeyRelease, Qt::Key_Escape);
    ASSERT_FALSE(closed()) << "the calendar closed";
    tap(Qt::Key_Escape);
    EXPECT_TRUE(closed());
}
