#include "tools/frame_tool.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "platform/graphics/shapes.h"
#include "tools/bounded_point.h"
#include "tools/box_handles.h"
#include "tools/grab_handle.h"

namespace orvane {
namespace {

constexpr int kCornerHandles[] = {0, 2, 4, 6};
constexpr int kEdgeReach = 4;  // pixels to either side, the last one excluded
constexpr std::int64_t kSmallestArea = 9;

bool isBetween(int value, int low, int high) { return low < value && value < high; }
bool isNear(int value, int edge) { return std::abs(value - edge) < kEdgeReach; }

// A handle that is dragged out of the limit stops at the side that is its own.
IntPoint heldByOwnSides(int handle, IntPoint mouse, IntRect limit, IntPoint now) {
    const auto held = [](box_handles::Side side, int to, int low, int high, int otherwise) {
        if (side == box_handles::Side::First && to < low) return low;
        if (side == box_handles::Side::Second && to > high) return high;
        return otherwise;
    };
    const box_handles::Rule& rule = box_handles::ruleOf(handle);
    return {held(rule.x, mouse.x, limit.x, limit.right() - 1, now.x),
            held(rule.y, mouse.y, limit.y, limit.bottom() - 1, now.y)};
}

// How far a stretch has to go to lie inside another one; the far end counts most.
int shiftInside(int first, int second, int low, int high) {
    const int raised = std::max(low - first, 0);
    return raised - std::max(second + raised - high, 0);
}

IntPoint shifted(IntPoint point, int dx, int dy) { return {point.x + dx, point.y + dy}; }

}  // namespace

void FrameTool::Reset() noexcept {
    PaintTool::Reset();
    corner1 = corner2 = moveAnchor = kUnsetPoint;
}

IntRect FrameTool::frame() const noexcept {
    return {std::min(corner1.x, corner2.x), std::min(corner1.y, corner2.y), std::abs(corner2.x - corner1.x),
            std::abs(corner2.y - corner1.y)};
}

void FrameTool::OnMouseDown(MouseButton /*button*/, IntPoint mouse) noexcept {
    if (!holdsFrame()) {
        if (limit.contains(mouse)) corner1 = corner2 = bounded(mouse);
        return;
    }
    activeHandle = handleAt(mouse);
    if (activeHandle == kUnset && frame().contains(mouse)) moveAnchor = bounded(mouse);
}

bool FrameTool::OnMouseMove(IntPoint mouse) noexcept {
    const IntPoint before1 = corner1, before2 = corner2;
    if (activeHandle != kUnset) {
        dragHandle(bounded(mouse));
    } else if (placed && moveAnchor != kUnsetPoint) {
        moveFrame(bounded(mouse));
    } else if (!placed && holdsFrame()) {
        corner2 = bounded(mouse);
    } else {
        return false;
    }
    if (isInsideBounds()) return true;
    corner1 = before1;
    corner2 = before2;
    return false;
}

void FrameTool::OnMouseUp(IntPoint mouse) noexcept {
    if (!holdsFrame()) return;
    const IntPoint before1 = corner1, before2 = corner2;
    if (activeHandle != kUnset) {
        if (limit.contains(mouse)) box_handles::move(activeHandle, mouse, corner1, corner2);
    } else if (!placed) {
        if (!place(bounded(mouse))) return;
    } else {
        moveAnchor = kUnsetPoint;
    }
    normalise();
    if (isInsideBounds()) return;
    corner1 = before1;
    corner2 = before2;
}

int FrameTool::handleAt(IntPoint mouse) const noexcept {
    for (const int handle : kCornerHandles) {
        if (hitsBoxHandle(box_handles::centreOf(handle, corner1, corner2), handleRadius(pen), mouse)) {
            return handle;
        }
    }
    const bool besideColumns = isBetween(mouse.x, corner1.x, corner2.x);
    const bool besideRows = isBetween(mouse.y, corner1.y, corner2.y);
    if (besideColumns && isNear(mouse.y, corner1.y)) return 1;
    if (besideRows && isNear(mouse.x, corner2.x)) return 3;
    if (besideColumns && isNear(mouse.y, corner2.y)) return 5;
    if (besideRows && isNear(mouse.x, corner1.x)) return 7;
    return kUnset;
}

void FrameTool::dragHandle(IntPoint mouse) noexcept {
    const IntPoint now = box_handles::centreOf(activeHandle, corner1, corner2);
    const IntPoint to = limit.contains(mouse) ? mouse : heldByOwnSides(activeHandle, mouse, limit, now);
    box_handles::move(activeHandle, to, corner1, corner2);
    normalise();
}

void FrameTool::moveFrame(IntPoint mouse) noexcept {
    const int dx = mouse.x - moveAnchor.x, dy = mouse.y - moveAnchor.y;
    corner1 = shifted(corner1, dx, dy);
    corner2 = shifted(corner2, dx, dy);
    const int inX = shiftInside(corner1.x, corner2.x, limit.x, limit.right() - 1);
    const int inY = shiftInside(corner1.y, corner2.y, limit.y, limit.bottom() - 1);
    corner1 = bounded(shifted(corner1, inX, inY));
    corner2 = bounded(shifted(corner2, inX, inY));
    moveAnchor = mouse;
}

bool FrameTool::place(IntPoint mouse) noexcept {
    corner2 = mouse;
    placed = true;
    normalise();
    if (corner2.x > limit.right()) corner2.x = limit.right() - 1;
    if (corner2.y > limit.bottom()) corner2.y = limit.bottom() - 1;
    const std::int64_t area = std::int64_t{corner2.x - corner1.x} * (corner2.y - corner1.y);
    if (area >= kSmallestArea) return true;
    Reset();
    return false;
}

void FrameTool::normalise() noexcept { box_handles::normalise(corner1, corner2, activeHandle); }

bool FrameTool::isInsideBounds() const noexcept {
    return bounds.contains(corner1) && bounds.contains(corner2);
}

CursorId FrameTool::HitCursor(IntPoint mouse) const noexcept {
    if (!placed) return CursorId::Arrow;
    const int handle = handleAt(mouse);
    if (handle != kUnset) return box_handles::ruleOf(handle).cursor;
    return frame().contains(mouse) ? CursorId::Move : CursorId::Arrow;
}

void FrameTool::Draw(MutablePixelView view) noexcept {
    if (isUnset()) return;
    const IntRect inside = frame();
    const int right = inside.right(), bottom = inside.bottom();
    if (placed) {
        const SolidBrush shade{shadeColour};
        fillRectangle(view, shade, {limit.x, inside.y, inside.x - limit.x, inside.height});
        fillRectangle(view, shade, {limit.x, limit.y, limit.width, inside.y - limit.y});
        fillRectangle(view, shade, {right + 1, inside.y, limit.right() - right - 1, inside.height});
        fillRectangle(view, shade, {limit.x, bottom, limit.width, limit.bottom() - bottom});
    }
    drawRectangle(view, Pen(kWhite), inside);
}

void FrameTool::reprojectCorners(PointMap toNewZoom) noexcept {
    if (!holdsFrame()) return;
    const IntPoint to1 = bounded(toNewZoom(corner1)), to2 = bounded(toNewZoom(corner2));
    if (!bounds.contains(to1) || !bounds.contains(to2)) return;
    corner1 = to1;
    corner2 = to2;
}

}  // namespace orvane
