#include "MainFormFixture.h"

#include <QSignalSpy>
#include <QWheelEvent>
#include <QtTest/qtestspontaneevent.h>

TEST_F(MainFormTest, EveryControlIsThereUnderItsName)
{
    open(at(2026, 3, 5));
    for (const char *name : { "FrameMove",     "ButtFocus",
                              "ListMonth",     "ListYear",
                              "ButtPrevMonth", "ButtNextMonth",
                              "LabelActDate",  "LabelMonth",
                              "LabelToday",    "LabelTodayVal",
                              "LabelTime",     "LabelTimeVal",
                              "LabelActDate2", "LabelActDate2Val",
                              "LabelLeftDays", "LabelLeftDaysVal",
                              "LabelDays",     "LabelSettings",
                              "LabelAbout",    "ButtUndo",
                              "ButtRedo",      "ButtNew",
                              "KnCopy",        "KnMin",
                              "KnClose",       "KnOk" }) {
        EXPECT_NE(form->findChild<QWidget *>(QString::fromLatin1(name)), nullptr) << name;
    }
    for (int i = 1; i <= MonthGrid::CellCount; ++i)
        EXPECT_EQ(cell(i)->property("index").toInt(), i);
    for (int c = 1; c <= MonthGrid::ColumnCount; ++c)
        EXPECT_NE(child<QLabel>(QStringLiteral("LabelWeekDay%1").arg(c)), nullptr);
    for (const char *name : { "KnCopy", "KnMin", "ButtNew", "ButtUndo", "ButtRedo" })
        EXPECT_EQ(button(name)->focusPolicy(), Qt::StrongFocus) << name;
    auto *years = child<QComboBox>(QStringLiteral("ListYear"));
    EXPECT_EQ(years->count(), 200);
    EXPECT_EQ(years->itemText(0), QStringLiteral("1900"));
    EXPECT_EQ(years->itemText(199), QStringLiteral("2099"));
    // Fresh window: today shown and selected, nothing to go back or forward to.
    EXPECT_EQ(form->DisplayDate, QDate(2026, 3, 5));
    EXPECT_FALSE(button("ButtUndo")->isEnabled());
    EXPECT_FALSE(button("ButtRedo")->isEnabled());
    EXPECT_EQ(cellOf(QDate(2026, 3, 5))->backColor(), MonthGrid::SelectedFromTodayBackColor);
}

struct MonthButtonRow
{
    QDateTime start;
    const char *button;
    QDate expected;
};

class MonthButtons : public MainFormTest, public ::testing::WithParamInterface<MonthButtonRow>
{ };

TEST_P(MonthButtons, StepOneMonthClippingTheDay)
{
    const MonthButtonRow &row = GetParam();
    open(row.start);
    click(button(row.button));
    EXPECT_EQ(form->DisplayDate, row.expected);
    EXPECT_EQ(shownMonth(), row.expected.month());
    EXPECT_EQ(shownYear(), row.expected.year());
    EXPECT_EQ(label("LabelActDate2Val")->text(), QLocale().toString(row.expected, u"M/d/yyyy"));
    EXPECT_TRUE(button("ButtUndo")->isEnabled());
    EXPECT_FALSE(button("ButtRedo")->isEnabled());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, MonthButtons,
    ::testing::Values(MonthButtonRow { at(2026, 1, 31), "ButtNextMonth", QDate(2026, 2, 28) },
                      MonthButtonRow { at(2024, 1, 31), "ButtNextMonth", QDate(2024, 2, 29) },
                      MonthButtonRow { at(2026, 3, 31), "ButtPrevMonth", QDate(2026, 2, 28) },
                      MonthButtonRow { at(2026, 12, 15), "ButtNextMonth", QDate(2027, 1, 15) }));

struct ListOverflowRow
{
    int year;
    QDate expected;
};

class MonthListOverflow : public MainFormTest, public ::testing::WithParamInterface<ListOverflowRow>
{ };

TEST_P(MonthListOverflow, RunsTheDayOnWhileTheGridShowsTheChosenMonth)
{
    const ListOverflowRow &row = GetParam();
    open(at(row.year, 1, 31));
    auto *months = child<QComboBox>(QStringLiteral("ListMonth"));
    months->setFocus();
    QTest::keyClick(months, Qt::Key_Down); // January -> February
    EXPECT_EQ(form->DisplayDate, row.expected);
    EXPECT_EQ(shownMonth(), 2);
    EXPECT_EQ(form->grid().cellOf(QDate(row.year, 2, 28)) > 0, true);
    EXPECT_EQ(form->grid().cellOf(row.expected), 0);
    EXPECT_EQ(label("LabelActDate")->text(), QStringLiteral(" February "));
    EXPECT_EQ(label("LabelActDate2Val")->text(), QLocale().toString(row.expected, u"M/d/yyyy"));
    EXPECT_TRUE(button("ButtUndo")->isEnabled());
}

INSTANTIATE_TEST_SUITE_P(Years, MonthListOverflow,
                         ::testing::Values(ListOverflowRow { 2026, QDate(2026, 3, 3) },
                                           ListOverflowRow { 2024, QDate(2024, 3, 2) }));

TEST_F(MainFormTest, YearListJumpsToTheChosenYear)
{
    open(at(2026, 2, 14));
    auto *years = child<QComboBox>(QStringLiteral("ListYear"));
    years->setFocus();
    QTest::keyClick(years, Qt::Key_Up);
    EXPECT_EQ(form->DisplayDate, QDate(2025, 2, 14));
    EXPECT_EQ(shownYear(), 2025);
    EXPECT_GT(form->grid().cellOf(QDate(2025, 2, 14)), 0);
}

struct BoundRow
{
    QDateTime start;
    const char *towards; // the button that reaches the bound
    const char *away;
};

class MonthBounds : public MainFormTest, public ::testing::WithParamInterface<BoundRow>
{ };

TEST_P(MonthBounds, DisableTheButtonAfterMovingTheFocusAndEnableItOnTheWayBack)
{
    const BoundRow &row = GetParam();
    open(row.start);
    QPushButton *towards = button(row.towards);
    click(towards);
    EXPECT_FALSE(towards->isEnabled());
    EXPECT_EQ(QApplication::focusWidget(), button("ButtUndo"));
    // A second click on the disabled button does nothing.
    const QDate atBound = form->DisplayDate;
    click(towards);
    EXPECT_EQ(form->DisplayDate, atBound);

    click(button(row.away));
    EXPECT_TRUE(towards->isEnabled());
    EXPECT_EQ(form->DisplayDate.month(), row.start.date().month());
}

INSTANTIATE_TEST_SUITE_P(
    Ends, MonthBounds,
    ::testing::Values(BoundRow { at(1900, 2, 10), "ButtPrevMonth", "ButtNextMonth" },
                      BoundRow { at(2099, 11, 10), "ButtNextMonth", "ButtPrevMonth" }));

struct BlankCellRow
{
    const char *name;
    QDateTime start;
    bool trailing; // the last cell, else the first
    bool moves;
};

class BlankCells : public MainFormTest, public ::testing::WithParamInterface<BlankCellRow>
{ };

TEST_P(BlankCells, StepIntoTheNeighbouringMonthButNotPastTheBounds)
{
    const BlankCellRow &row = GetParam();
    open(row.start);
    const QDate first(shownYear(), shownMonth(), 1);
    const int index = row.trailing ? MonthGrid::CellCount : 1;
    ASSERT_TRUE(cell(index)->text().isEmpty()) << row.name;
    // The day that cell would hold if the grid ran on.
    const int firstCell = form->grid().firstDayCell();
    const QDate target = first.addDays(index - firstCell);

    click(cell(index));
    if (row.moves) {
        EXPECT_EQ(form->SelectedDate, target) << row.name;
        EXPECT_EQ(form->DisplayDate, target) << row.name;
        EXPECT_EQ(shownMonth(), target.month()) << row.name;
        EXPECT_EQ(QApplication::focusWidget(), cellOf(target)) << row.name;
    } else {
        EXPECT_EQ(form->DisplayDate, row.start.date()) << row.name;
        EXPECT_EQ(form->SelectedDate, row.start.date()) << row.name;
        EXPECT_EQ(QDate(shownYear(), shownMonth(), 1), first) << row.name;
    }
    // The window is not left stuck in a day pick: the month buttons still move.
    if (button("ButtPrevMonth")->isEnabled()) {
        const QDate before = form->DisplayDate;
        click(button("ButtPrevMonth"));
        EXPECT_EQ(form->DisplayDate, before.addMonths(-1)) << row.name;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BlankCells,
    ::testing::Values(BlankCellRow { "trailingNovember2099", at(2099, 11, 15), true, true },
                      BlankCellRow { "trailingDecember2099", at(2099, 12, 15), true, false },
                      BlankCellRow { "leadingApril2026", at(2026, 4, 15), false, true },
                      BlankCellRow { "leadingJanuary1900", at(1900, 1, 15), false, false }),
    [](const auto &row) { return std::string(row.param.name); });

struct PickRow
{
    int offset; // days from today
    const char *difference;
    std::uint32_t colour;
    bool undoEnabled;
};

class DayPick : public MainFormTest, public ::testing::WithParamInterface<PickRow>
{ };

TEST_P(DayPick, SelectsTheDayAndShowsItsDistance)
{
    const PickRow &row = GetParam();
    const QDate today(2026, 3, 12);
    open(QDateTime(today, QTime(18, 30)));
    const QDate picked = today.addDays(row.offset);
    click(cellOf(picked));
    EXPECT_EQ(form->SelectedDate, picked);
    EXPECT_EQ(form->RedoDate, picked);
    EXPECT_EQ(label("LabelLeftDaysVal")->text(), QString::fromLatin1(row.difference));
    EXPECT_EQ(cellOf(picked)->backColor(), row.colour);
    if (row.offset != 0) {
        EXPECT_EQ(cellOf(today)->backColor(), MonthGrid::TodayBackColor);
    }
    EXPECT_EQ(button("ButtUndo")->isEnabled(), row.undoEnabled);
    EXPECT_FALSE(button("ButtRedo")->isEnabled());
    EXPECT_TRUE(cellOf(picked)->accessibleName().contains(QStringLiteral("selected")));
    EXPECT_TRUE(cellOf(today)->accessibleName().contains(QStringLiteral("today")));
    EXPECT_TRUE(cellOf(today)->accessibleName().contains(QStringLiteral("March 12, 2026")));
}

INSTANTIATE_TEST_SUITE_P(
    Offsets, DayPick,
    ::testing::Values(PickRow { 2, "2", MonthGrid::SelectedFromTodayBackColor, true },
                      PickRow { -2, "-2", MonthGrid::SelectedBeforeTodayBackColor, true },
                      PickRow { 0, "0", MonthGrid::SelectedFromTodayBackColor, false }));

TEST_F(MainFormTest, NothingIsPickedWhileTheProgramIsBusy)
{
    open(at(2026, 3, 12));
    program->setShowingWindow(true);
    click(cellOf(QDate(2026, 3, 20)));
    EXPECT_EQ(form->SelectedDate, QDate(2026, 3, 12));
    program->setShowingWindow(false);
    click(cellOf(QDate(2026, 3, 21)));
    EXPECT_EQ(form->SelectedDate, QDate(2026, 3, 21));

    program->setShowingWindow(true);
    auto *months = child<QComboBox>(QStringLiteral("ListMonth"));
    months->setFocus();
    QTest::keyClick(months, Qt::Key_Down);
    EXPECT_EQ(form->DisplayDate, QDate(2026, 3, 21));
    EXPECT_GT(form->grid().cellOf(QDate(2026, 3, 21)), 0);
}

TEST_F(MainFormTest, ArrowKeysWalkTheGridAndIntoTheNextMonth)
{
    open(at(2026, 3, 12));
    click(cellOf(QDate(2026, 3, 15)));
    const std::pair<Qt::Key, QDate> steps[] = {
        { Qt::Key_Right, QDate(2026, 3, 16) },
        { Qt::Key_Down, QDate(2026, 3, 23) },
        { Qt::Key_Down, QDate(2026, 3, 30) },
        { Qt::Key_Right, QDate(2026, 3, 31) },
        // Past the last day: the blank cell steps into April and picks the 1st.
        { Qt::Key_Right, QDate(2026, 4, 1) },
        { Qt::Key_Left, QDate(2026, 3, 31) },
        { Qt::Key_Up, QDate(2026, 3, 24) },
    };
    for (const auto &[key, expected] : steps) {
        QTest::keyClick(QApplication::focusWidget(), key);
        EXPECT_EQ(form->SelectedDate, expected);
        EXPECT_EQ(QApplication::focusWidget(), cellOf(expected));
    }
}

TEST_F(MainFormTest, UpArrowOutOfTheTopRowGoesToThePreviousMonth)
{
    open(at(2026, 3, 12)); // March 2026 starts on a Sunday, in cell 1
    click(cellOf(QDate(2026, 3, 3)));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    EXPECT_EQ(form->SelectedDate, QDate(2026, 2, 24));
    EXPECT_EQ(shownMonth(), 2);
}

TEST_F(MainFormTest, WheelOverTheGridStepsOneMonthPerNotch)
{
    open(at(2026, 3, 12));
    auto wheel = [&](int delta) {
        // Marked as coming from the system, as a real wheel is, so that the cell under the
        // pointer hands it on to the window.
        QWidget *target = cell(20);
        const QPointF local = QRectF(target->rect()).center();
        QWheelEvent event(local, target->mapToGlobal(local), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event);
        QApplication::sendEvent(target, &event);
    };
    wheel(-120);
    EXPECT_EQ(form->DisplayDate, QDate(2026, 4, 12));
    wheel(240);
    EXPECT_EQ(form->DisplayDate, QDate(2026, 2, 12));
    // Half notches add up.
    wheel(-60);
    EXPECT_EQ(form->DisplayDate, QDate(2026, 2, 12));
    wheel(-60);
    EXPECT_EQ(form->DisplayDate, QDate(2026, 3, 12));
    EXPECT_TRUE(button("ButtUndo")->isEnabled());
}

TEST_F(MainFormTest, SwitchingTheFirstWeekdayMovesEveryDayOneColumnLeft)
{
    open(at(2026, 3, 12));
    std::vector<int> sundayFirst;
    for (int day = 1; day <= 31; ++day)
        sundayFirst.push_back(form->grid().cellOf(QDate(2026, 3, day)));
    EXPECT_EQ(label("LabelWeekDay1")->text(), QStringLiteral("Sun"));

    program->settings().FirstWeekDay = QStringLiteral("Monday");
    form->SettingLabelesAndButtons();
    form->UpdateCalendarDate();

    EXPECT_EQ(label("LabelWeekDay1")->text(), QStringLiteral("Mon"));
    EXPECT_EQ(label("LabelWeekDay7")->text(), QStringLiteral("Sun"));
    EXPECT_EQ(shownMonth(), 3); // the refilled list keeps the month
    for (int day = 1; day <= 31; ++day) {
        const int before = sundayFirst[static_cast<std::size_t>(day - 1)];
        const int after = form->grid().cellOf(QDate(2026, 3, day));
        EXPECT_EQ((after - 1) % 7, ((before - 1) % 7 + 6) % 7) << "day " << day;
        EXPECT_EQ(cell(after)->text(), QString::number(day));
    }
    EXPECT_EQ(form->grid().cellOf(QDate(2026, 3, 1)), 7);
}

struct LanguageRow
{
    const char *language;
    const char *firstMonth;
    const char *settings;
    const char *days;
    const char *time; // the clock at 14:05:09
};

class Languages : public MainFormTest, public ::testing::WithParamInterface<LanguageRow>
{ };

TEST_P(Languages, CaptionsAndClockFollowTheExactLanguageWord)
{
    const LanguageRow &row = GetParam();
    open(at(2026, 3, 12, 14, 5, 9), QString::fromUtf8(row.language), QStringLiteral("Monday"));
    form->TimerCheckAreaFormTick();
    EXPECT_EQ(child<QComboBox>(QStringLiteral("ListMonth"))->itemText(0),
              QString::fromUtf8(row.firstMonth));
    EXPECT_EQ(label("LabelSettings")->text(), QString::fromUtf8(row.settings));
    EXPECT_EQ(label("LabelDays")->text(), QString::fromUtf8(row.days));
    EXPECT_EQ(label("LabelTimeVal")->text(), QString::fromUtf8(row.time));
}

INSTANTIATE_TEST_SUITE_P(
    Words, Languages,
    ::testing::Values(LanguageRow { "English", "January", "  Settings  ", "day(s)", "2:05:09 PM" },
                      LanguageRow { "english", "Январь", "  Настройки  ", "дн(ей)", "14:05:09" },
                      LanguageRow { "Russian", "Январь", "  Настройки  ", "дн(ей)", "14:05:09" }));

TEST_F(MainFormTest, MidnightRebuildsTheGridOnceAndTheDifferenceShrinks)
{
    open(at(2026, 3, 10, 23, 59, 58));
    click(cellOf(QDate(2026, 3, 12)));
    form->TimerCheckAreaFormTick();
    ASSERT_EQ(label("LabelLeftDaysVal")->text(), QStringLiteral("2"));
    QSignalSpy rebuilds(form.data(), &CalendarMonthExtForm::gridRebuilt);

    clock.setNow(at(2026, 3, 10, 23, 59, 59));
    form->TimerCheckAreaFormTick();
    form->TimerCheckAreaFormTick(); // same second: nothing is written
    EXPECT_EQ(rebuilds.count(), 0);

    clock.setNow(at(2026, 3, 11, 0, 0, 0));
    form->TimerCheckAreaFormTick();
    form->TimerCheckAreaFormTick();
    clock.setNow(at(2026, 3, 11, 0, 0, 1));
    form->TimerCheckAreaFormTick();
    EXPECT_EQ(rebuilds.count(), 1);
    EXPECT_EQ(label("LabelLeftDaysVal")->text(), QStringLiteral("1"));
    EXPECT_EQ(label("LabelTodayVal")->text(), QStringLiteral("3/11/2026"));
    EXPECT_EQ(label("LabelTimeVal")->text(), QStringLiteral("12:00:01 AM"));
    EXPECT_EQ(cellOf(QDate(2026, 3, 11))->backColor(), MonthGrid::TodayBackColor);
    EXPECT_EQ(cellOf(QDate(2026, 3, 10))->backColor(), MonthGrid::DayBackColor);
    EXPECT_EQ(cellOf(QDate(2026, 3, 12))->backColor(), MonthGrid::SelectedFromTodayBackColor);
}

TEST_F(MainFormTest, TheClockTimerKeepsTheTimeLabelCurrent)
{
    open(at(2026, 3, 10, 9, 0, 0));
    clock.setNow(at(2026, 3, 10, 9, 41, 7));
    for (int i = 0; i < 50 && label("LabelTimeVal")->text() != QStringLiteral("9:41:07 AM"); ++i)
        QTest::qWait(20);
    EXPECT_EQ(label("LabelTimeVal")->text(), QStringLiteral("9:41:07 AM"));
}

TEST_F(MainFormTest, ARebuildRetitlesTheTaskbarEntryOnlyWhenItExists)
{
    open(at(2026, 3, 12));
    program->settings().AppTitleEnglish = QStringLiteral("Calendar");
    program->settings().AppTitleRussian = QStringLiteral("Календарь");
    // The taskbar presence comes with the window; take its flag away to see the rebuild leave
    // the title alone without it.
    program->setFormLoaded(QStringLiteral("TabAppForm"), false);
    form->setWindowTitle(QStringLiteral("before"));
    form->UpdateCalendarDate();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("before"));

    program->setFormLoaded(QStringLiteral("TabAppForm"), true);
    program->settings().Language = QStringLiteral("Russian");
    form->UpdateCalendarDate();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Календарь"));
}
