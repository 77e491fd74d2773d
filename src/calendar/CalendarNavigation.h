#pragma once

#include "MonthGrid.h"

#include <QDate>

#include <functional>

class Clock;

// The Main window's dates and what moves them: the month buttons, the two lists, a day pick,
// the history buttons and the wheel. It holds the enabled states of the four buttons it governs
// and the locks that keep one rebuild from starting another; the window forwards its events here
// and draws what results. The shown month never leaves January 1900 to December 2099.
class CalendarNavigation
{
public:
    // Where the keyboard focus goes after a command; the window moves it.
    enum class FocusTarget { None, ButtUndo, ButtFocus, Day };
    struct FocusMove
    {
        FocusTarget target = FocusTarget::None;
        int cell = 0; // for Day: the cell to focus, which picks its day
    };

    // `isBusy` is the program-wide busy test; list clicks and day picks do nothing while it holds.
    CalendarNavigation(const Clock &clock, std::function<bool()> isBusy);

    // Today, shown and selected; nothing remembered, both history buttons off.
    void Load();
    // Rebuilds the grid for the shown month: the month of DisplayDate unless a list click runs.
    void UpdateCalendarDate();

    void ButtPrevMonthClick();
    void ButtNextMonthClick();
    // The lists show `year` (0 when its text is not a number) and `month` (1..12) by the user's
    // choice. The year list leaves ButtUndo alone while `yearKeepsUndo` is set.
    void ListClick(int year, int month, bool yearList = false);
    // The cell `index` (1..42) took the focus.
    void ButtDayGotFocus(int index);
    // An arrow key on cell `index`: the cell `offset` away, across the month's edge if need be.
    void moveDayFocus(int index, int offset);
    // A wheel turn in angle units (120 a notch); up goes back in time.
    void wheel(int angle);
    void ButtUndoClick();
    void ButtRedoClick();

    // The focus move the last command asked for, once.
    FocusMove takeFocusMove();

    const MonthGrid &grid() const { return m_grid; }
    int shownYear() const { return m_shownYear; }
    int shownMonth() const { return m_shownMonth; }
    // Counts grid rebuilds, so the window redraws only after one.
    int rebuilds() const { return m_rebuilds; }

    QDate TodayDate; // today as of the load
    QDate DisplayDate; // the grid shows this date's month (a list's day overflow aside)
    QDate SelectedDate; // marked in the grid
    QDate RedoDate; // the last picked day; null until the first pick

    bool ButtUndoEnabled = false;
    bool ButtRedoEnabled = false;
    bool ButtPrevMonthEnabled = true;
    bool ButtNextMonthEnabled = true;

    bool weekStartsOnSunday = true;
    // While set, a rebuild redraws only the days of the month.
    bool partialUpdate = false;
    // Keeps the year list from enabling ButtUndo.
    bool yearKeepsUndo = false;

    bool LoadDone = false;
    bool DaySelectBusy = false;
    bool DayFocusLock = false;
    bool HistoryStepLock = false;
    bool ListChangeLock = false;

private:
    void stepMonth(int months);
    bool stepToNeighbourMonth(QDate target);
    void historyStep(QDate date);
    void applyMonthBounds();
    QDate today() const;

    const Clock &m_clock;
    std::function<bool()> m_isBusy;
    MonthGrid m_grid;
    int m_shownYear = 0;
    int m_shownMonth = 0;
    int m_rebuilds = 0;
    int m_wheelAngle = 0;
    FocusMove m_focusMove;
};
