#include "Placement.h"

#include <algorithm>

namespace Placement {

QPoint centredTopLeft(const QRect &screen, const QSize &size)
{
    return { screen.x() + (screen.width() - size.width()) / 2,
             screen.y() + (screen.height() - size.height()) / 2 };
}

QPoint keptOnScreen(const QPoint &storedTwips, const QSize &size, const QList<QRect> &screens)
{
    const int x = twipsToPixels(storedTwips.x());
    const int y = twipsToPixels(storedTwips.y());
    const QRect window(QPoint(x, y), size);
    QRect screen = screens.value(0, QRect(0, 0, 1024, 768));
    qint64 best = 0;
    for (const QRect &candidate : screens) {
        const QRect shown = candidate.intersected(window);
        if (qint64(shown.width()) * shown.height() > best) {
            best = qint64(shown.width()) * shown.height();
            screen = candidate;
        }
    }
    const int maxX = std::max(screen.left(), screen.right() + 1 - size.width());
    const int maxY = std::max(screen.top(), screen.bottom() + 1 - size.height());
    return { std::clamp(x, screen.left(), maxX), std::clamp(y, screen.top(), maxY) };
}

QPoint startTopLeft(const Settings &settings, const QSize &size, const QList<QRect> &screens)
{
    if (settings.CalendarAlignToCenter == QStringLiteral("Yes"))
        return centredTopLeft(screens.value(0, QRect(0, 0, 1024, 768)), size);
    return keptOnScreen({ settings.CalendarLeft, settings.CalendarTop }, size, screens);
}

QPoint besideTopLeft(const QRect &anchor, const QSize &size, const QRect &screen, int gap,
                     NoRoom noRoom)
{
    int x = anchor.right() + 1 + gap;
    if (x + size.width() > screen.right() + 1)
        x = anchor.left() - gap - size.width();
    if (x < screen.left()) {
        if (noRoom == NoRoom::ScreenCentre)
            return centredTopLeft(screen, size);
        x = anchor.left() + (anchor.width() - size.width()) / 2;
    }
    const int maxX = std::max(screen.left(), screen.right() + 1 - size.width());
    const int maxY = std::max(screen.top(), screen.bottom() + 1 - size.height());
    return { std::clamp(x, screen.left(), maxX), std::clamp(anchor.top(), screen.top(), maxY) };
}

} // namespace Placement
