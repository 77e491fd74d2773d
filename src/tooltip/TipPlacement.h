#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

// Where a tooltip goes, in twips: beside and below the pointer, shifted left near the right
// edge of the screen and put above the pointer near its bottom.
namespace TipPlacement {

inline constexpr int RightOfPointer = 15;
inline constexpr int InsideRightEdge = 150;
inline constexpr int BottomZone = 300;
inline constexpr int Below = 270;
inline constexpr int Above = 150;
// With the placement flag set, the tooltip sits nearer the pointer.
inline constexpr int BelowNear = 20;
inline constexpr int AboveNear = 40;

// The top-left corner of a tooltip of `tip` size for the pointer at `pointer`, on `screen`.
QPoint place(QPoint pointer, QSize tip, QRect screen, bool nearPointer);

} // namespace TipPlacement
