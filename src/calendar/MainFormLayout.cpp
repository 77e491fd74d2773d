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

QList<QRect> MainFormLayout::textAreas()
{
    QList<QRect> areas {
        LabelActDate,     KnCopy,    KnMin,         KnClose,       LabelMonth,       ButtPrevMonth,
        ListMonth,        ListYear,  ButtNextMonth, ButtUndo,      ButtRedo,         LabelToday,
        LabelTodayVal,    LabelTime, LabelTimeVal,  LabelActDate2, LabelActDate2Val, LabelLeftDays,
        LabelLeftDaysVal, LabelDays, LabelSettings, LabelAbout,    ButtNew,          KnOk
    };
    for (int column = 1; column <= MonthGrid::ColumnCount; ++column)
        areas.append(weekdayLabel(column));
    areas.append(gridArea());
    return areas;
}
