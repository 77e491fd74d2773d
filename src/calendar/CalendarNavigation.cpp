#include "CalendarNavigation.h"

#include "DateRules.h"
#include "app/Clock.h"

#include <QtGlobal>

namespace {

constexpr int WheelNotch = 120; // angle units of one wheel notch

} // namespace

CalendarNavigation::CalendarNavigation(const Clock &clock, std::function<bool()> isBusy)
    : m_clock(clock)
    , m_isBusy(std::move(isBusy))
{ }

QDate CalendarNavigation::today() const
{
    // A clock outside the calendar's range shows the nearest month it has.
    return DateRules::clampToShown(m_clock.now().date());
}

void CalendarNavigation::Load()
{
    DisplayDate = today();
    TodayDate = DisplayDate;
    SelectedDate = DisplayDate;
    UpdateCalendarDate();
    ButtUndoEnabled = false;
    ButtRedoEnabled = false;
    LoadDone = true;
}

void CalendarNavigation::UpdateCalendarDate()
{
    if (!ListChangeLock) {
        m_shownYear = DisplayDate.year();
        m_shownMonth = DisplayDate.month();
    }
    if (!DateRules::isShownMonth(QDate(m_shownYear, qBound(1, m_shownMonth, 12), 1)))
        return; // the grid keeps what it shows

    MonthGrid::FillRequest request;
    request.year = m_shownYear;
    request.month = m_shownMonth;
    request.today = m_clock.now().date();
    request.selected = SelectedDate;
    request.weekStartsOnSunday = weekStartsOnSunday;
    request.partial = partialUpdate;
    m_grid.fill(request, m_clock);
    ++m_rebuilds;
    applyMonthBounds();
}

void CalendarNavigation::applyMonthBounds()
{
    // A disabled button cannot keep the focus, so the focus leaves it first.
    const auto applyBound = [this](bool &enabled, bool atBound) {
        if (atBound && enabled)
            m_focusMove = { FocusTarget::ButtUndo, 0 };
        enabled = !atBound;
    };
    applyBound(ButtPrevMonthEnabled, DateRules::isFirstMonth(m_shownYear, m_shownMonth));
    applyBound(ButtNextMonthEnabled, DateRules::isLastMonth(m_shownYear, m_shownMonth));
}

void CalendarNavigation::ButtPrevMonthClick()
{
    stepMonth(-1);
}

void CalendarNavigation::ButtNextMonthClick()
{
    stepMonth(1);
}

void CalendarNavigation::stepMonth(int months)
{
    // A day pick has already put its target date in place.
    const QDate target = DaySelectBusy ? DisplayDate : DateRules::addMonths(DisplayDate, months);
    // A list's day overflow can leave DisplayDate a month ahead of the grid; a step past the
    // range from there does nothing rather than show a month the lists cannot.
    if (!DateRules::isShownMonth(target))
        return;
    ButtUndoEnabled = true;
    // Going one way always makes the way back possible.
    (months > 0 ? ButtPrevMonthEnabled : ButtNextMonthEnabled) = true;
    DisplayDate = target;
    HistoryStepLock = true;
    UpdateCalendarDate();
    HistoryStepLock = false;
}

void CalendarNavigation::ListClick(int year, int month, bool yearList)
{
    if (m_isBusy() || !LoadDone || ListChangeLock || HistoryStepLock)
        return;
    if (!yearList || !yearKeepsUndo)
        ButtUndoEnabled = true;
    // Day overflow runs on: 31 January with February chosen is early March, while the grid
    // still shows February because the lists are not written back.
    const QDate date = DateRules::dateSerial(year, month, DisplayDate.day());
    if (!DateRules::isShownMonth(QDate(year, qBound(1, month, 12), 1)) || !date.isValid())
        return;
    DisplayDate = date;
    m_shownYear = year;
    m_shownMonth = month;
    ListChangeLock = true;
    UpdateCalendarDate();
    ListChangeLock = false;
}

void CalendarNavigation::ButtDayGotFocus(int index)
{
    if (m_isBusy() || DayFocusLock)
        return;
    ButtUndoEnabled = true;
    ButtRedoEnabled = false;
    DaySelectBusy = true;
    const int day = m_grid.cell(index).day;
    if (day == 0) {
        stepToNeighbourMonth(
            DateRules::cellDate(m_shownYear, m_shownMonth, m_grid.firstDayCell(), index));
    } else {
        DisplayDate = QDate(m_shownYear, m_shownMonth, day);
        SelectedDate = DisplayDate;
        DayFocusLock = true;
        UpdateCalendarDate();
        if (SelectedDate == TodayDate)
            ButtUndoEnabled = false; // nothing to go back to
        RedoDate = SelectedDate;
        DayFocusLock = false;
    }
    DaySelectBusy = false;
}

bool CalendarNavigation::stepToNeighbourMonth(QDate target)
{
    const bool forward = target > QDate(m_shownYear, m_shownMonth, 1);
    if (!(forward ? ButtNextMonthEnabled : ButtPrevMonthEnabled))
        return false; // at the bounds nothing moves
    const bool wasBusy = DaySelectBusy;
    DaySelectBusy = true; // the month step keeps the target date
    DisplayDate = target;
    stepMonth(forward ? 1 : -1);
    DaySelectBusy = wasBusy;
    // Focusing the target cell picks that day.
    if (const int cell = m_grid.cellOf(target))
        m_focusMove = { FocusTarget::Day, cell };
    return true;
}

void CalendarNavigation::moveDayFocus(int index, int offset)
{
    const int target = index + offset;
    if (target >= 1 && target <= MonthGrid::CellCount) {
        m_focusMove = { FocusTarget::Day, target };
        return;
    }
    if (m_isBusy())
        return;
    stepToNeighbourMonth(
        DateRules::cellDate(m_shownYear, m_shownMonth, m_grid.firstDayCell(), target));
}

void CalendarNavigation::wheel(int angle)
{
    // Touchpads send small steps; a month moves per full notch.
    m_wheelAngle += angle;
    while (qAbs(m_wheelAngle) >= WheelNotch) {
        const bool back = m_wheelAngle > 0;
        m_wheelAngle += back ? -WheelNotch : WheelNotch;
        if (back ? ButtPrevMonthEnabled : ButtNextMonthEnabled)
            stepMonth(back ? -1 : 1);
    }
}

void CalendarNavigation::historyStep(QDate date)
{
    DisplayDate = date;
    SelectedDate = DisplayDate;
    HistoryStepLock = true;
    DayFocusLock = false;
    UpdateCalendarDate();
    HistoryStepLock = false;
    m_focusMove = { FocusTarget::ButtFocus, 0 };
}

void CalendarNavigation::ButtUndoClick()
{
    if (!ButtUndoEnabled)
        return;
    // Today afresh, not the day the window was loaded on.
    historyStep(today());
    ButtUndoEnabled = false;
    if (!RedoDate.isNull())
        ButtRedoEnabled = true;
}

void CalendarNavigation::ButtRedoClick()
{
    if (!ButtRedoEnabled)
        return;
    historyStep(RedoDate);
    ButtRedoEnabled = false;
    ButtUndoEnabled = true;
}

CalendarNavigation::FocusMove CalendarNavigation::takeFocusMove()
{
    return std::exchange(m_focusMove, FocusMove {});
}
