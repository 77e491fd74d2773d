#pragma once

#include <QDate>
#include <QString>

#include <array>
#include <chrono>
#include <cstdint>

class Clock;

// The 42 day cells of one month: what each shows and its back colour. It keeps its cells between
// fills, because a partial update redraws only the days of the month over the previous contents.
class MonthGrid
{
public:
    static constexpr int RowCount = 6;
    static constexpr int ColumnCount = 7;
    static constexpr int CellCount = RowCount * ColumnCount;

    // Back colours, 0xBBGGRR.
    static constexpr std::uint32_t LeadingBackColor = 0xC8D0D4;
    static constexpr std::uint32_t TrailingBackColor = 0xC8D0D4;
    static constexpr std::uint32_t DayBackColor = 0xE0E0E0;
    static constexpr std::uint32_t TodayBackColor = 0xFFFFFF;
    static constexpr std::uint32_t SelectedBeforeTodayBackColor = 0xC0C0FF;
    static constexpr std::uint32_t SelectedFromTodayBackColor = 0x80FFFF;

    // A fill loop gives up once this much time has passed since it began.
    static constexpr std::chrono::seconds FillLoopLimit { 10 };

    struct Cell
    {
        int day = 0; // 0: blank, outside the month
        std::uint32_t backColor = DayBackColor;
    };

    struct FillRequest
    {
        int year = 0;
        int month = 0;
        QDate today;
        QDate selected;
        bool weekStartsOnSunday = true;
        // Redraw only the days of the month; leading and trailing cells keep what they hold.
        bool partial = false;
    };

    // Rebuilds the cells; the clock serves the fill loops' time limits.
    void fill(const FillRequest &request, const Clock &clock);

    // Cells count from 1, top-left first, row by row.
    const Cell &cell(int index) const { return m_cells.at(static_cast<std::size_t>(index - 1)); }
    static QString caption(const Cell &cell);

    // The cell of the 1st of the month (1..7) and the month's length, as of the last fill.
    int firstDayCell() const { return m_firstDayCell; }
    int daysShown() const { return m_daysShown; }
    // The cell that shows `date`, or 0 when the grid does not show it.
    int cellOf(QDate date) const;
    // The date a cell shows, or a null date for a blank cell.
    QDate dateOf(int index) const;
    // The date in a cell's place: its day, or for a blank cell the neighbouring month's day.
    QDate placeOf(int index) const;

private:
    std::array<Cell, CellCount> m_cells {};
    int m_year = 0;
    int m_month = 0;
    int m_firstDayCell = 1;
    int m_daysShown = 0;
};
