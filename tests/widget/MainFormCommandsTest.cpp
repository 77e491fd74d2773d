#include "MainFormFixture.h"

#include <QClipboard>
#include <QKeyEvent>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest/qtestspontaneevent.h>

#include <variant>
#include <vector>

namespace {

struct Pick
{
    QDate date;
};
struct Press
{
    const char *button;
};
struct SetClock
{
    QDateTime now;
};
using Action = std::variant<Pick, Press, SetClock>;

struct Expect
{
    bool undo;
    bool redo;
    QDate display;
    QDate selected;
};

struct HistoryRow
{
    const char *name;
    QDateTime start;
    std::vector<std::pair<Action, Expect>> steps;
};

const QDate Today(2026, 3, 12);
const QDate March5(2026, 3, 5);

} // namespace

class History : public MainFormTest, public ::testing::WithParamInterface<HistoryRow>
{ };

TEST_P(History, UndoAndRedoToggleBetweenTodayAndTheLastPick)
{
    const HistoryRow &row = GetParam();
    open(row.start);
    EXPECT_FALSE(button("ButtUndo")->isEnabled());
    EXPECT_FALSE(button("ButtRedo")->isEnabled());
    int n = 0;
    for (const auto &[action, expect] : row.steps) {
        if (const auto *pick = std::get_if<Pick>(&action))
            click(cellOf(pick->date));
        else if (const auto *press = std::get_if<Press>(&action))
            click(button(press->button));
        else
            clock.setNow(std::get<SetClock>(action).now);
        const std::string where = std::string(row.name) + ", step " + std::to_string(n++);
        EXPECT_EQ(button("ButtUndo")->isEnabled(), expect.undo) << where;
        EXPECT_EQ(button("ButtRedo")->isEnabled(), expect.redo) << where;
        EXPECT_EQ(form->DisplayDate, expect.display) << where;
        EXPECT_EQ(form->SelectedDate, expect.selected) << where;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Sequences, History,
    ::testing::Values(
        HistoryRow { "pickUndoRedo",
                     QDateTime(Today, QTime(10, 0)),
                     { { Pick { March5 }, { true, false, March5, March5 } },
                       { Press { "ButtUndo" }, { false, true, Today, Today } },
                       { Press { "ButtRedo" }, { true, false, March5, March5 } },
                       { Press { "ButtRedo" }, { true, false, March5, March5 } } } },
        HistoryRow { "browseWithoutPickingThenUndo",
                     QDateTime(Today, QTime(10, 0)),
                     { { Press { "ButtNextMonth" }, { true, false, QDate(2026, 4, 12), Today } },
                       { Press { "ButtNextMonth" }, { true, false, QDate(2026, 5, 12), Today } },
                       { Press { "ButtUndo" }, { false, false, Today, Today } } } },
        HistoryRow { "redoLeadsToTheEarlierPickNotTheBrowsedMonth",
                     QDateTime(Today, QTime(10, 0)),
                     { { Pick { March5 }, { true, false, March5, March5 } },
                       { Press { "ButtNextMonth" }, { true, false, QDate(2026, 4, 5), March5 } },
                       { Press { "ButtUndo" }, { false, true, Today, Today } },
                       { Press { "ButtRedo" }, { true, false, March5, March5 } } } },
        HistoryRow { "pickTodayThenRedo",
                     QDateTime(Today, QTime(10, 0)),
                     { { Pick { Today }, { false, false, Today, Today } },
                       { Press { "ButtNextMonth" }, { true, false, QDate(2026, 4, 12), Today } },
                       { Press { "ButtUndo" }, { false, true, Today, Today } },
                       // Forward to today, and back-to-today is lit all the same.
                       { Press { "ButtRedo" }, { true, false, Today, Today } } } },
        HistoryRow {
            "undoPastMidnight",
            QDateTime(Today, QTime(23, 59)),
            { { Pick { QDate(2026, 3, 20) },
                { true, false, QDate(2026, 3, 20), QDate(2026, 3, 20) } },
              { SetClock { QDateTime(Today.addDays(1), QTime(0, 0, 5)) },
                { true, false, QDate(2026, 3, 20), QDate(2026, 3, 20) } },
              { Press { "ButtUndo" }, { false, true, Today.addDays(1), Today.addDays(1) } },
              // Is-it-today still means the day the window was loaded on.
              { Pick { Today }, { false, false, Today, Today } },
              { Pick { Today.addDays(1) },
                { true, false, Today.addDays(1), Today.addDays(1) } } } }),
    [](const auto &row) { return std::string(row.param.name); });

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
    EXPECT_TRUE(form->keys().ListDropFlag);
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
    click(cellOf(March5));
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
