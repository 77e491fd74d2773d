#include "MonthGrid.h"

#include "DateRules.h"
#include "app/Clock.h"

void MonthGrid::fill(const FillRequest &request, const Clock &clock)
{
    const QDate first(request.year, request.month, 1);
    if (!first.isValid())
        return; // a bad year or month keeps the grid as it was
    const int w = DateRules::weekdayColumn(first, request.weekStartsOnSunday);
    m_year = request.year;
    m_month = request.month;
    m_firstDayCell = w;

    if (!request.partial) {
        for (Cell &c : m_cells)
            c.backColor = DayBackColor;
        const auto deadline = clock.steadyNow() + FillLoopLimit;
        for (int index = w - 1; index >= 1; --index) {
            if (clock.steadyNow() > deadline)
                break;
            m_cells[static_cast<std::size_t>(index - 1)] = { 0, LeadingBackColor };
        }
    }

    int lastDayCell = w - 1;
    const auto dayDeadline = clock.steadyNow() + FillLoopLimit;
    for (int k = 1;; ++k) {
        if (clock.steadyNow() > dayDeadline)
            break;
        const QDate d = first.addDays(k - 1);
        const int index = w - 1 + k;
        if (d.month() != request.month || d.year() > request.year || index > CellCount)
            break;
        Cell &c = m_cells[static_cast<std::size_t>(index - 1)];
        // A white cell keeps its white here; on a full fill the reset above has cleared it.
        if (c.backColor != TodayBackColor)
            c.backColor = DayBackColor;
        c.day = k;
        if (d == request.today)
            c.backColor = TodayBackColor;
        if (d == request.selected) {
            c.backColor = request.selected < request.today ? SelectedBeforeTodayBackColor
                                                           : SelectedFromTodayBackColor;
        }
        lastDayCell = index;
    }
    m_daysShown = lastDayCell - (w - 1);

    if (!request.partial) {
        const auto deadline = clock.steadyNow() + FillLoopLimit;
        for (int index = lastDayCell + 1; index <= CellCount; ++index) {
            if (clock.steadyNow() > deadline)
                break;
            m_cells[static_cast<std::size_t>(index - 1)] = { 0, TrailingBackColor };
        }
    }
}

QString MonthGrid::caption(const Cell &cell)
{
    return cell.day > 0 ? QString::number(cell.day) : QString();
}

int MonthGrid::cellOf(QDate date) const
{
    if (date.year() != m_year || date.month() != m_month)
        return 0;
    const int index = m_firstDayCell - 1 + date.day();
    return index >= 1 && index <= CellCount && cell(index).day == date.day() ? index : 0;
}

QDate MonthGrid::dateOf(int index) const
{
    if (index < 1 || index > CellCount || cell(index).day == 0)
        return {};
    return QDate(m_year, m_month, cell(index).day);
}

QDate MonthGrid::placeOf(int index) const
{
    return QDate(m_year, m_month, 1).addDays(index - m_firstDayCell);
}
