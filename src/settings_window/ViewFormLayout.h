#pragma once

#include <QRect>
#include <QSize>

// Where the Settings window's controls sit, in logical pixels, and where the window opens.
struct ViewFormLayout
{
    static constexpr int Width = 320;
    static constexpr int Height = 306;
    static constexpr int Margin = 14;
    static constexpr int RowCount = 7;

    static constexpr QRect LabelGeneral { 10, 8, 260, 26 };
    static constexpr QRect KnClose { Width - 30, 8, 22, 22 };

    // Row 0..6: language, first day, scheme, border width, in center, picture, topmost.
    static QRect rowLabel(int row) { return { Margin, rowTop(row), 136, 24 }; }
    static QRect rowControl(int row)
    {
        return { Margin + 140, rowTop(row), Width - 2 * Margin - 140, 24 };
    }

    static constexpr QRect KnOkPicture { Width / 2 - 104, 262, 96, 30 };
    static constexpr QRect KnCancelPicture { Width / 2 + 8, 262, 96, 30 };

    // The window opens this far beside the Main window, or in the middle of the screen when
    // neither side has room.
    static constexpr int Gap = 12;

private:
    static constexpr int rowTop(int row) { return 44 + row * 30; }
};
