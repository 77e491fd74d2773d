#pragma once

#include "app/Settings.h"

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

// Window placement arithmetic, in twips where the settings keep twips.
namespace Placement {

inline int twipsToPixels(int twips)
{
    return twips / TwipsPerPixel;
}

inline int pixelsToTwips(int pixels)
{
    return pixels * TwipsPerPixel;
}

// The top-left corner that centres a window of `size` on `screen`.
QPoint centredTopLeft(const QRect &screen, const QSize &size);

// The top-left corner for a stored position (twips), moved just enough to keep the whole window
// on the screen that shows most of it (the first, the primary, when none shows any), so that a
// position saved with a larger or another screen never leaves it out of reach.
QPoint keptOnScreen(const QPoint &storedTwips, const QSize &size, const QList<QRect> &screens);

// Where a window of `size` opens from the settings: centred on the primary screen (the first of
// `screens`) when CalendarAlignToCenter says so, else at CalendarLeft/CalendarTop kept on screen.
QPoint startTopLeft(const Settings &settings, const QSize &size, const QList<QRect> &screens);

// Where a window opened beside another goes when neither side has room for it.
enum class NoRoom { OverTheAnchor, ScreenCentre };

// The top-left corner of a window of `size` that opens beside `anchor` (another window): to its
// right, `gap` pixels away, top edges level; to its left when the right side has no room on
// `screen`; over it, or in the middle of the screen, when neither side has. The result always
// lies on the screen.
QPoint besideTopLeft(const QRect &anchor, const QSize &size, const QRect &screen, int gap,
                     NoRoom noRoom = NoRoom::OverTheAnchor);

} // namespace Placement
