#include "Placement.h"

#include <algorithm>

namespace Placement {

QPoint centredTopLeft(const QRect &screen, const QSize &size)
{
    return { screen.x() + (screen.width() - size.width()) / 2,
             screen.y() + (screen.height() - size.height()) / 2 };
}

QPoint keptOnScreen(const QPoint &storedTwips, const QSize &size, const QRect &screen)
{
    const int x = twipsToPixels(storedTwips.x());
    const int y = twipsToPixels(storedTwips.y());
    const int maxX = std::max(screen.left(), screen.right() + 1 - size.width());
    const int maxY = std::max(screen.top(), screen.bottom() + 1 - size.height());
    return { std::clamp(x, screen.left(), maxX), std::clamp(y, screen.top(), maxY) };
}

} // namespace Placement
