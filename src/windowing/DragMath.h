#pragma once

#include <QPoint>
#include <QPointF>

#include <cstdint>

// The drag, shadow-offset and pointer arithmetic, in twips, with the pointer and the windows
// behind small interfaces so that it runs without a display.

// Where the pointer is on the screen, in logical pixels (fractional under fractional scaling).
class PointerSource
{
public:
    virtual ~PointerSource() = default;
    virtual QPointF globalPosition() const = 0;
};

// A window as the drag sees it: its top-left corner in twips and a way to move it.
class DragWindow
{
public:
    virtual ~DragWindow() = default;
    virtual QPoint topLeftTwips() const = 0;
    virtual void moveToTwips(QPoint topLeft) = 0;
};

// A shadow as the drag sees it.
class DragShadow
{
public:
    virtual ~DragShadow() = default;
    virtual void moveToTwips(QPoint topLeft) = 0;
    // Puts the shadow directly beneath its window in the stacking order.
    virtual void putBeneathOwner() = 0;
};

// Only one window is dragged at a time, so one set of these serves the whole program.
struct DragState
{
    std::int32_t GrabX = 0;
    std::int32_t GrabY = 0;
    bool ShadowRestacked = false;
    bool MoveLocked = false;
};

inline constexpr std::int32_t ShadowOffsetTwips = 65;
// A pointer jump larger than this in one event (240 pixels) is taken for a glitch.
inline constexpr std::int32_t MaxDragJumpTwips = 3600;

enum DragPhase : int { DragGrab = 0, DragMove = 1, DragRecord = 2 };

// Pointer position inside `window`, in twips.
std::int32_t GetPointerXInWindow(const PointerSource &pointer, const DragWindow &window);
std::int32_t GetPointerYInWindow(const PointerSource &pointer, const DragWindow &window);

// Phase 0 records the grab point and forgets the restack of the last drag, phase 1 moves the
// window (and its shadow) so that the grab point is under the pointer again, any other phase
// only records. Returns whether the window was moved.
bool DragStep(DragState &state, const PointerSource &pointer, DragWindow &window, int phase,
              DragShadow *shadow, std::int32_t offset);

// Where a shadow lies for a window whose top-left corner is `windowTwips`.
QPoint shadowTopLeftTwips(QPoint windowTwips, std::int32_t offset);

// Twips to logical pixels, to the nearest pixel so that negative positions keep the same
// shadow offset as positive ones.
int nearestPixel(std::int64_t twips);
