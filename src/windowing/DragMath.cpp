#include "DragMath.h"

#include "app/Settings.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

bool fitsInt32(std::int64_t value)
{
    return value >= std::numeric_limits<std::int32_t>::min()
        && value <= std::numeric_limits<std::int32_t>::max();
}

std::int32_t clampedInt32(std::int64_t value)
{
    if (value < std::numeric_limits<std::int32_t>::min())
        return std::numeric_limits<std::int32_t>::min();
    if (value > std::numeric_limits<std::int32_t>::max())
        return std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(value);
}

std::int64_t pointerTwips(double pixels)
{
    return std::llround(std::clamp(pixels, -1e12, 1e12) * TwipsPerPixel);
}

} // namespace

std::int32_t GetPointerXInWindow(const PointerSource &pointer, const DragWindow &window)
{
    return clampedInt32(pointerTwips(pointer.globalPosition().x()) - window.topLeftTwips().x());
}

std::int32_t GetPointerYInWindow(const PointerSource &pointer, const DragWindow &window)
{
    return clampedInt32(pointerTwips(pointer.globalPosition().y()) - window.topLeftTwips().y());
}

QPoint shadowTopLeftTwips(QPoint windowTwips, std::int32_t offset)
{
    return { clampedInt32(std::int64_t(windowTwips.x()) + offset),
             clampedInt32(std::int64_t(windowTwips.y()) + offset) };
}

int nearestPixel(std::int64_t twips)
{
    const std::int64_t half = TwipsPerPixel / 2;
    const std::int64_t rounded =
        twips >= 0 ? (twips + half) / TwipsPerPixel : -((-twips + half) / TwipsPerPixel);
    return static_cast<int>(rounded);
}

bool DragStep(DragState &state, const PointerSource &pointer, DragWindow &window, int phase,
              DragShadow *shadow, std::int32_t offset)
{
    const std::int32_t x = GetPointerXInWindow(pointer, window);
    const std::int32_t y = GetPointerYInWindow(pointer, window);
    if (phase != DragMove) {
        state.GrabX = x;
        state.GrabY = y;
        if (phase == DragGrab)
            state.ShadowRestacked = false;
        return false;
    }

    // The grab point is kept for the whole drag: every move is computed from it afresh, so the
    // window cannot drift from the pointer however many events arrive.
    const std::int64_t dx = std::int64_t(state.GrabX) - x;
    const std::int64_t dy = std::int64_t(state.GrabY) - y;
    if (!fitsInt32(dx) || !fitsInt32(dy))
        return false;
    bool moved = false;
    if (std::llabs(dx) <= MaxDragJumpTwips && std::llabs(dy) <= MaxDragJumpTwips) {
        const QPoint topLeft = window.topLeftTwips();
        const std::int64_t left = std::int64_t(topLeft.x()) - dx;
        const std::int64_t top = std::int64_t(topLeft.y()) - dy;
        if (fitsInt32(left) && fitsInt32(top)) {
            window.moveToTwips({ static_cast<int>(left), static_cast<int>(top) });
            moved = true;
        }
    }
    if (shadow) {
        if (!state.ShadowRestacked) {
            shadow->putBeneathOwner();
            state.ShadowRestacked = true;
        }
        shadow->moveToTwips(shadowTopLeftTwips(window.topLeftTwips(), offset));
    }
    return moved;
}
