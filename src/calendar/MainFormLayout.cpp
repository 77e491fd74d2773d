#include "MainFormLayout.h"

#include "MonthGrid.h"

namespace {

constexpr int GridTop = 86;
constexpr int WeekdayTop = 66;
constexpr int WeekdayHeight = 18;
constexpr int StepX = MainFormLayout::CellWidth + MainFormLayout::CellSpacing;
constexpr int StepY = MainFormLayout::CellHeight + MainFormLayout::CellSpacing;

} // namespace

QRect MainFormLayout::dayCell(int index)
{
    const int row = (index - 1) / MonthGrid::ColumnCount;
    const int column = (index - 1) % MonthGrid::ColumnCount;
    return { Margin + column * StepX, GridTop + row * StepY, CellWidth, CellHeight };
}

QRect MainFormLayout::weekdayLabel(int column)
{
    return { Margin + (column - 1) * StepX, WeekdayTop, CellWidth, WeekdayHeight };
}

QRect MainFormLayout::gridArea()
{
    return dayCell(1).united(dayCell(MonthGrid::CellCount));
}
