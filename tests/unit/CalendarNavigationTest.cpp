#include "calendar/CalendarNavigation.h"

#include "support/FakeClock.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace {

// A script of commands, as a person would give them, and the state they must leave:
//   next prev          the month buttons
//   list:YYYY-MM       both lists chosen (year:YYYY only the year list)
//   pick:D             the day D of the shown month takes the focus
//   cell:N             cell N (1..42) takes the focus, blank or not
//   key:N:OFF          an arrow key on cell N, OFF cells away
//   wheel:A            a wheel turn of A angle units
//   undo redo          the history buttons
//   busy idle          the program-wide busy test
// A focus move to a cell is followed as the window does: it picks that cell's day.
struct Row
{
    const char *name;
    const char *now;
    const char *script;
    const char *display; // DisplayDate
    const char *shown; // the month the lists and the grid show
    const char *selected;
    const char *redo; // "" while nothing is remembered
    const char *buttons; // enabled: ButtUndo, ButtRedo, ButtPrevMonth, ButtNextMonth
};

QDate date(const char *text)
{
    return QDate::fromString(QString::fromLatin1(text), Qt::ISODate);
}

class Navigation : public ::testing::TestWithParam<Row>
{
protected:
    void run(const QString &command)
    {
        const QStringList p = command.split(QLatin1Char(':'));
        const auto arg = [&](int i) { return p.value(i).toInt(); };
        if (p[0] == QStringLiteral("next"))
            nav.ButtNextMonthClick();
        else if (p[0] == QStringLiteral("prev"))
            nav.ButtPrevMonthClick();
        else if (p[0] == QStringLiteral("list"))
            nav.ListClick(p[1].left(4).toInt(), p[1].mid(5).toInt());
        else if (p[0] == QStringLiteral("year"))
            nav.ListClick(arg(1), nav.shownMonth(), true);
        else if (p[0] == QStringLiteral("pick"))
            nav.ButtDayGotFocus(
                nav.grid().cellOf(QDate(nav.shownYear(), nav.shownMonth(), arg(1))));
        else if (p[0] == QStringLiteral("cell"))
            nav.ButtDayGotFocus(arg(1));
        else if (p[0] == QStringLiteral("key"))
            nav.moveDayFocus(arg(1), arg(2));
        else if (p[0] == QStringLiteral("wheel"))
            nav.wheel(arg(1));
        else if (p[0] == QStringLiteral("undo"))
            nav.ButtUndoClick();
        else if (p[0] == QStringLiteral("redo"))
            nav.ButtRedoClick();
        else if (p[0] == QStringLiteral("busy") || p[0] == QStringLiteral("idle"))
            busy = p[0] == QStringLiteral("busy");
        else
            FAIL() << "unknown command " << command.toStdString();
        const auto move = nav.takeFocusMove();
        if (move.target == CalendarNavigation::FocusTarget::Day)
            nav.ButtDayGotFocus(move.cell);
    }

    FakeClock clock;
    bool busy = false;
    CalendarNavigation nav { clock, [this] { return busy; } };
};

} // namespace

TEST_P(Navigation, LeavesTheDatesAndButtonsAsExpected)
{
    const Row &row = GetParam();
    clock.setNow(QDateTime(date(row.now), QTime(12, 0)));
    nav.Load();
    for (const QString &command :
         QString::fromLatin1(row.script).split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        run(command);
    }
    EXPECT_EQ(nav.DisplayDate, date(row.display));
    EXPECT_EQ(
        QStringLiteral("%1-%2").arg(nav.shownYear()).arg(nav.shownMonth(), 2, 10, QLatin1Char('0')),
        QString::fromLatin1(row.shown));
    EXPECT_EQ(nav.SelectedDate, date(row.selected));
    EXPECT_EQ(nav.RedoDate, date(row.redo));
    const QString buttons = QStringLiteral("%1%2%3%4")
                                .arg(int(nav.ButtUndoEnabled))
                                .arg(int(nav.ButtRedoEnabled))
                                .arg(int(nav.ButtPrevMonthEnabled))
                                .arg(int(nav.ButtNextMonthEnabled));
    EXPECT_EQ(buttons, QString::fromLatin1(row.buttons));
    // Grid and lists always agree, and never leave the calendar's range.
    EXPECT_EQ(nav.grid().dateOf(nav.grid().firstDayCell()),
              QDate(nav.shownYear(), nav.shownMonth(), 1));
    EXPECT_GE(nav.DisplayDate, QDate(1900, 1, 1));
    EXPECT_LE(nav.DisplayDate, QDate(2099, 12, 31));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Scripts, Navigation, ::testing::Values(
    Row { "Fresh",                  "2026-03-05", "",                       "2026-03-05", "2026-03", "2026-03-05", "",           "0011" },
    Row { "NextClipsTheDay",        "2026-01-31", "next",                   "2026-02-28", "2026-02", "2026-01-31", "",           "1011" },
    Row { "PrevClipsTheDay",        "2026-03-31", "prev",                   "2026-02-28", "2026-02", "2026-03-31", "",           "1011" },
    Row { "ListRunsTheDayOn",       "2026-01-31", "list:2026-02",           "2026-03-03", "2026-02", "2026-01-31", "",           "1011" },
    Row { "YearListJumps",          "2026-03-05", "year:1999",              "1999-03-05", "1999-03", "2026-03-05", "",           "1011" },
    Row { "ListIgnoredWhileBusy",   "2026-03-05", "busy list:2026-07",      "2026-03-05", "2026-03", "2026-03-05", "",           "0011" },
    Row { "LastMonthDisablesNext",  "2099-11-15", "next",                   "2099-12-15", "2099-12", "2099-11-15", "",           "1010" },
    Row { "BackFromTheLastMonth",   "2099-12-15", "prev",                   "2099-11-15", "2099-11", "2099-12-15", "",           "1011" },
    Row { "FirstMonthDisablesPrev", "1900-02-10", "prev",                   "1900-01-10", "1900-01", "1900-02-10", "",           "1001" },
    Row { "OverflowNeverLeaves2099","2099-10-31", "list:2099-11 next",      "2099-12-01", "2099-11", "2099-10-31", "",           "1011" },
    Row { "OverflowThenTheList",    "2099-10-31", "list:2099-11 list:2099-12", "2099-12-01", "2099-12", "2099-10-31", "",        "1010" },
    Row { "ClockAfter2099",         "2100-03-05", "",                       "2099-12-31", "2099-12", "2099-12-31", "",           "0010" },
    Row { "ClockBefore1900",        "1899-06-01", "",                       "1900-01-01", "1900-01", "1900-01-01", "",           "0001" },
    Row { "UndoAfter2099",          "2100-03-05", "prev undo",              "2099-12-31", "2099-12", "2099-12-31", "",           "0010" },
    Row { "WheelPerNotch",          "2026-03-05", "wheel:-60 wheel:-60 wheel:-240", "2026-06-05", "2026-06", "2026-03-05", "", "1011" },
    Row { "WheelUpGoesBack",        "2026-03-05", "wheel:120",              "2026-02-05", "2026-02", "2026-03-05", "",           "1011" },
    Row { "WheelStopsAtTheBound",   "1900-02-10", "wheel:360",              "1900-01-10", "1900-01", "1900-02-10", "",           "1001" },
    Row { "PickADay",               "2026-03-05", "pick:20",                "2026-03-20", "2026-03", "2026-03-20", "2026-03-20", "1011" },
    Row { "PickTodayKeepsUndoOff",  "2026-03-05", "pick:20 pick:5",         "2026-03-05", "2026-03", "2026-03-05", "2026-03-05", "0011" },
    Row { "PickIgnoredWhileBusy",   "2026-03-05", "busy pick:20",           "2026-03-05", "2026-03", "2026-03-05", "",           "0011" },
    Row { "TrailingCellStepsOn",    "2026-03-05", "cell:42",                "2026-04-11", "2026-04", "2026-04-11", "2026-04-11", "1011" },
    Row { "LeadingCellStepsBack",   "2026-04-05", "cell:1",                 "2026-03-29", "2026-03", "2026-03-29", "2026-03-29", "1011" },
    Row { "NoTrailingStepIn2099",   "2099-12-05", "cell:42",                "2099-12-05", "2099-12", "2099-12-05", "",           "1010" },
    Row { "ArrowWithinTheGrid",     "2026-03-05", "key:5:7",                "2026-03-12", "2026-03", "2026-03-12", "2026-03-12", "1011" },
    Row { "ArrowPastTheLastRow",    "2026-02-05", "key:40:7",               "2026-03-19", "2026-03", "2026-03-19", "2026-03-19", "1011" },
    Row { "UndoGoesToToday",        "2026-03-05", "pick:20 next undo",      "2026-03-05", "2026-03", "2026-03-05", "2026-03-20", "0111" },
    Row { "RedoGoesToThePick",      "2026-03-05", "pick:20 next undo redo", "2026-03-20", "2026-03", "2026-03-20", "2026-03-20", "1011" },
    Row { "PickEndsTheWayForward",  "2026-03-05", "pick:20 undo pick:9",    "2026-03-09", "2026-03", "2026-03-09", "2026-03-09", "1011" },
    Row { "UndoWithNothingPicked",  "2026-03-05", "next next undo",         "2026-03-05", "2026-03", "2026-03-05", "",           "0011" },
    Row { "UndoWhileOffDoesNothing","2026-03-05", "undo redo",              "2026-03-05", "2026-03", "2026-03-05", "",           "0011" },
    Row { "RedoAfterPickingToday",  "2026-03-05", "pick:5 next undo redo",  "2026-03-05", "2026-03", "2026-03-05", "2026-03-05", "1011" },
    Row { "MonthStepsKeepTheMemory","2026-03-05", "pick:9 undo next",       "2026-04-05", "2026-04", "2026-03-05", "2026-03-09", "1111" }),
    [](const auto &row) { return std::string(row.param.name); });
// clang-format on

// After midnight the history goes to the new day, while a pick still compares with the day
// the window was loaded on.
TEST(NavigationOverMidnight, UndoTakesTheNewDayAndPicksCompareWithTheLoadDay)
{
    FakeClock clock(QDateTime(QDate(2026, 3, 5), QTime(23, 59)));
    CalendarNavigation nav(clock, [] { return false; });
    nav.Load();
    clock.setNow(QDateTime(QDate(2026, 3, 6), QTime(0, 1)));
    nav.ButtNextMonthClick();
    nav.ButtUndoClick();
    EXPECT_EQ(nav.DisplayDate, QDate(2026, 3, 6));
    nav.ButtDayGotFocus(nav.grid().cellOf(QDate(2026, 3, 5)));
    EXPECT_FALSE(nav.ButtUndoEnabled) << "the load day counts as today";
}

// A bound reached moves the focus to ButtUndo before the month button goes grey, and the history
// steps park the focus on ButtFocus.
TEST(NavigationFocus, MovesAwayFromAButtonBeforeItIsDisabled)
{
    FakeClock clock(QDateTime(QDate(2099, 11, 5), QTime(12, 0)));
    CalendarNavigation nav(clock, [] { return false; });
    nav.Load();
    nav.ButtNextMonthClick();
    EXPECT_EQ(nav.takeFocusMove().target, CalendarNavigation::FocusTarget::ButtUndo);
    nav.ButtPrevMonthClick();
    EXPECT_EQ(nav.takeFocusMove().target, CalendarNavigation::FocusTarget::None);
    nav.ButtUndoClick();
    EXPECT_EQ(nav.takeFocusMove().target, CalendarNavigation::FocusTarget::ButtFocus);
}
