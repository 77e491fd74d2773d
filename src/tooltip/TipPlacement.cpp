#include "TipPlacement.h"

namespace TipPlacement {

QPoint place(QPoint pointer, QSize tip, QRect screen, bool nearPointer)
{
    const int screenRight = screen.x() + screen.width();
    const int screenBottom = screen.y() + screen.height();
    const int left = pointer.x() + tip.width() >= screenRight
        ? screenRight - tip.width() - InsideRightEdge
        : pointer.x() + RightOfPointer;
    const int top = pointer.y() + tip.height() >= screenBottom - BottomZone
        ? pointer.y() - tip.height() - (nearPointer ? AboveNear : Above)
        : pointer.y() + (nearPointer ? BelowNear : Below);
    return { left, top };
}

} // namespace TipPlacement
