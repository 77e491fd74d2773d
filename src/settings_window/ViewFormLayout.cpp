#include "ViewFormLayout.h"

#include "windowing/Placement.h"

#include <algorithm>

QPoint ViewFormLayout::besideTopLeft(const QRect &owner, const QSize &size, const QRect &screen)
{
    constexpr int Gap = 12;
    int x = owner.right() + 1 + Gap;
    if (x + size.width() > screen.right() + 1) {
        x = owner.left() - Gap - size.width();
        if (x < screen.left())
            return Placement::centredTopLeft(screen, size);
    }
    const int maxY = std::max(screen.top(), screen.bottom() + 1 - size.height());
    return { x, std::clamp(owner.top(), screen.top(), maxY) };
}
