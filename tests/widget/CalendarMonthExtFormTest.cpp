#include "MainFormFixture.h"
#include "calendar/MainFormLayout.h"

#include <QSignalSpy>
#include <QWheelEvent>
#include <QtTest/qtestspontaneevent.h>

// The navigation rules are unit tables; these check that the window forwards its controls to
// them and draws what they leave.

// Every control lies inside the window's side margins, no two overlap (but the unit of the day
// difference, which follows its number at a word's distance), and the cells stand in even rows
// under their weekday labels.
TEST_F(MainFormTest, ControlsStayInsideTheMarginsAndApart)
{
    open(at(2026, 3, 12));
    using L = MainFormLayout;
    const QRect inner(L::Margin, 0, L::Width - 2 * L::Margin, L::Height);
    QWidgetList controls = form->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    controls.removeAll(form->FrameMove);
    controls.removeAll(form->ButtFocus);
    ASSERT_EQ(controls.size(), 24 + 7 + 42);
    for (qsizetype a = 0; a < controls.size(); ++a) {
        const QString name = controls[a]->objectName();
        EXPECT_TRUE(inner.contains(controls[a]->geometry())) << name.toStdString();
        for (qsizetype b = a + 1; b < controls.size(); ++b) {
            const QString pair = name + QLatin1Char(' ') + controls[b]->objectName();
            if (!pair.contains(QStringLiteral("LabelDays"))
                || !pair.contains(QStringLiteral("LabelLeftDaysVal"))) {
                EXPECT_FALSE(controls[a]->geometry().intersects(controls[b]->geometry()))
                    << pair.toStdString();
            }
        }
    }
    EXPECT_GT(cell(1)->y(), form->LabelWeekDay[1]->geometry().bottom());
    for (int i = 1; i <= MonthGrid::CellCount; ++i) {
        EXPECT_EQ(cell(i)->x(), form->LabelWeekDay[std::size_t((i - 1) % 7 + 1)]->x()) << i;
        EXPECT_EQ(cell(i)->y(), cell(1)->y() + (i - 1) / 7 * (L::CellHeight + L::CellSpacing)) << i;
    }
}

// What a month button, a list and a day click leave on screen: lists, labels, the grid and the
// enabled state of the buttons all follow the model.
TEST_F(MainFormTest, ControlsDriveTheModelAndTheWindowShowsIt)
{
    open(at(2026, 1, 31));
    click(button("ButtNextMonth"));
    EXPECT_EQ(shownMonth(), 2);
    EXPECT_EQ(label("LabelActDate2Val")->text(), QStringLiteral("2/28/2026"));
    EXPECT_EQ(label("LabelLeftDaysVal")->text(), QStringLiteral("28"));
    EXPECT_EQ(label("LabelActDate")->text(), QStringLiteral(" February "));
    EXPECT_TRUE(button("ButtUndo")->isEnabled());

    // A year chosen by keyboard is a user's choice; the grid follows it.
    auto *years = child<QComboBox>(QStringLiteral("ListYear"));
    years->setFocus();
    QTest::keyClick(years, Qt::Key_Down);
    EXPECT_EQ(form->navigation().DisplayDate, QDate(2027, 2, 28));
    EXPECT_EQ(cellOf(QDate(2027, 2, 1))->text(), QStringLiteral("1"));

    click(cellOf(QDate(2027, 2, 10)));
    EXPECT_EQ(form->navigation().SelectedDate, QDate(2027, 2, 10));
    EXPECT_EQ(form->navigation().RedoDate, QDate(2027, 2, 10));
    click(button("ButtUndo"));
    EXPECT_EQ(shownYear(), 2026);
    EXPECT_EQ(QApplication::focusWidget(), button("ButtFocus"));
    EXPECT_TRUE(button("ButtRedo")->isEnabled());
    EXPECT_FALSE(button("ButtUndo")->isEnabled());
}

// A blank cell steps into the next month and focuses the day it stands for, which picks it.
TEST_F(MainFormTest, ABlankCellAndTheArrowKeysMoveTheFocusToTheDayReached)
{
    open(at(2026, 3, 12)); // March 2026 starts on a Sunday, in cell 1
    click(cell(42));
    EXPECT_EQ(form->navigation().SelectedDate, QDate(2026, 4, 11));
    EXPECT_EQ(QApplication::focusWidget(), cellOf(QDate(2026, 4, 11)));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_EQ(form->navigation().SelectedDate, QDate(2026, 4, 18));
    EXPECT_EQ(QApplication::focusWidget(), cellOf(QDate(2026, 4, 18)));
}

// Focus that comes back with the window or from a closed list is not a pick, and nothing is
// picked while the program is busy.
TEST_F(MainFormTest, OnlyAUsersFocusPicksADay)
{
    open(at(2026, 3, 12));
    DayButton *day = cellOf(QDate(2026, 3, 20));
    day->setFocus(Qt::ActiveWindowFocusReason);
    day->clearFocus();
    day->setFocus(Qt::PopupFocusReason);
    EXPECT_EQ(form->navigation().SelectedDate, QDate(2026, 3, 12));
    program->setShowingWindow(true);
    click(cellOf(QDate(2026, 3, 21)));
    program->setShowingWindow(false);
    EXPECT_EQ(form->navigation().SelectedDate, QDate(2026, 3, 12));
    click(cellOf(QDate(2026, 3, 22)));
    EXPECT_EQ(form->navigation().SelectedDate, QDate(2026, 3, 22));
}

TEST_F(MainFormTest, WheelOverTheGridStepsTheMonth)
{
    open(at(2026, 3, 12));
    // Marked as coming from the system, as a real wheel is, so that the cell under the pointer
    // hands it on to the window.
    QWidget *target = cell(20);
    const QPointF local = QRectF(target->rect()).center();
    QWheelEvent event(local, target->mapToGlobal(local), QPoint(), QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    QApplication::sendEvent(target, &event);
    EXPECT_EQ(shownMonth(), 4);
}

TEST_F(MainFormTest, MidnightRebuildsTheGridOnce)
{
    open(at(2026, 3, 10, 23, 59, 59));
    click(cellOf(QDate(2026, 3, 12)));
    QSignalSpy rebuilds(form.data(), &CalendarMonthExtForm::gridRebuilt);
    form->TimerCheckAreaFormTick();
    EXPECT_EQ(rebuilds.count(), 0);
    clock.setNow(at(2026, 3, 11, 0, 0, 0));
    form->TimerCheckAreaFormTick();
    form->TimerCheckAreaFormTick();
    EXPECT_EQ(rebuilds.count(), 1);
    EXPECT_EQ(label("LabelLeftDaysVal")->text(), QStringLiteral("1"));
    EXPECT_EQ(label("LabelTimeVal")->text(), QStringLiteral("12:00:00 AM"));
    EXPECT_EQ(cellOf(QDate(2026, 3, 11))->backColor(), MonthGrid::TodayBackColor);
}

TEST_F(MainFormTest, TheRussianWindowSpeaksRussianAndKeepsA24HourClock)
{
    open(at(2026, 3, 12, 14, 5, 9), QStringLiteral("Russian"));
    form->TimerCheckAreaFormTick();
    EXPECT_EQ(child<QComboBox>(QStringLiteral("ListMonth"))->itemText(0), QStringLiteral("Январь"));
    EXPECT_EQ(label("LabelTimeVal")->text(), QStringLiteral("14:05:09"));
}
