#pragma once

#include <QList>
#include <QRect>

// Where the Main window's controls sit, in logical pixels of the 400 x 273 window. Plain
// geometry, so that a test can check that nothing overlaps or leaves the window.
struct MainFormLayout
{
    static constexpr int Width = 400;
    static constexpr int Height = 273;
    static constexpr int Margin = 8;
    static constexpr int CellWidth = 31;
    static constexpr int CellHeight = 25;
    static constexpr int CellSpacing = 1;

    // The grid, 1..42 row by row, and the weekday labels above its columns, 1..7.
    static QRect dayCell(int index);
    static QRect weekdayLabel(int column);
    // The area of the cells alone.
    static QRect gridArea();
    // Every rectangle where text or a control stands: a background picture is veiled under them.
    static QList<QRect> textAreas();

    static constexpr QRect LabelActDate { Margin, 4, 236, 26 };
    static constexpr QRect KnCopy { 318, 6, 22, 22 };
    static constexpr QRect KnMin { 344, 6, 22, 22 };
    static constexpr QRect KnClose { 370, 6, 22, 22 };

    static constexpr QRect LabelMonth { Margin, 36, 56, 24 };
    static constexpr QRect ButtPrevMonth { 66, 36, 24, 24 };
    static constexpr QRect ListMonth { 93, 36, 108, 24 };
    static constexpr QRect ListYear { 204, 36, 66, 24 };
    static constexpr QRect ButtNextMonth { 273, 36, 24, 24 };
    static constexpr QRect ButtUndo { 318, 36, 35, 24 };
    static constexpr QRect ButtRedo { 357, 36, 35, 24 };

    static constexpr int PanelLeft = 246;
    static constexpr int PanelWidth = Width - Margin - PanelLeft;
    static constexpr QRect LabelToday { PanelLeft, 66, PanelWidth, 16 };
    static constexpr QRect LabelTodayVal { PanelLeft, 82, PanelWidth, 20 };
    static constexpr QRect LabelTime { PanelLeft, 106, PanelWidth, 16 };
    static constexpr QRect LabelTimeVal { PanelLeft, 122, PanelWidth, 20 };
    static constexpr QRect LabelActDate2 { PanelLeft, 146, PanelWidth, 16 };
    static constexpr QRect LabelActDate2Val { PanelLeft, 162, PanelWidth, 20 };
    static constexpr QRect LabelLeftDays { PanelLeft, 186, PanelWidth, 16 };
    static constexpr QRect LabelLeftDaysVal { PanelLeft, 202, 60, 20 };
    static constexpr QRect LabelDays { PanelLeft + 66, 202, PanelWidth - 66, 20 };

    static constexpr QRect LabelSettings { Margin, 246, 110, 22 };
    static constexpr QRect LabelAbout { 122, 246, 118, 22 };
    static constexpr QRect ButtNew { 288, 246, 36, 22 };
    static constexpr QRect KnOk { 332, 246, 60, 22 };
};
