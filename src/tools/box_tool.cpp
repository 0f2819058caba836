#include "tools/box_tool.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "platform/graphics/shapes.h"
#include "tools/bounded_point.h"
#include "tools/grab_handle.h"
#include "tools/image_commit.h"

namespace orvane {
namespace {

/// Where a handle lies along one axis of the box, and so which of its corners it moves.
enum class Side { First, Middle, Second };

struct HandleRule {
    Side x, y;
    int turnedLeftRight, turnedUpDown;  ///< its number after the box has turned over
    CursorId cursor;
};

constexpr HandleRule kHandleRules[] = {
    {Side::First, Side::First, 2, 6, CursorId::SizeNorthwestSoutheast},
    {Side::Middle, Side::First, 1, 5, CursorId::SizeNorthSouth},
    {Side::Second, Side::First, 0, 4, CursorId::SizeNortheastSouthwest},
    {Side::Second, Side::Middle, 7, 3, CursorId::SizeWestEast},
    {Side::Second, Side::Second, 6, 2, CursorId::SizeNorthwestSoutheast},
    {Side::Middle, Side::Second, 5, 1, CursorId::SizeNorthSouth},
    {Side::First, Side::Second, 4, 0, CursorId::SizeNortheastSouthwest},
    {Side::First, Side::Middle, 3, 7, CursorId::SizeWestEast},
};

constexpr int kFrameHandleRadius = 3;

constexpr int along(Side side, int first, int second) {
    return side == Side::First ? first : side == Side::Second ? second : (first + second) / 2;
}

constexpr IntRect grown(IntRect r) { return {r.x - 1, r.y - 1, r.width + 2, r.height + 2}; }

IntRect mappedBox(IntRect box, PointMap map) noexcept {
    const IntPoint first = bounded(map({box.x, box.y}));
    const IntPoint last = bounded(map({box.x + box.width - 1, box.y + box.height - 1}));
    return {first.x, first.y, last.x - first.x + 1, last.y - first.y + 1};
}

}  // namespace

void BoxTool::Reset() noexcept {
    PaintTool::Reset();
    corner1 = corner2 = moveAnchor = kUnsetPoint;
}

void BoxTool::OnMouseDown(MouseButton /*button*/, IntPoint mouse) noexcept {
    if (corner1.x < 0 || corner1.y < 0) {
        corner1 = corner2 = bounded(mouse);
        return;
    }
    activeHandle = handleAt(mouse);
    if (activeHandle == kUnset && box().contains(mouse)) moveAnchor = bounded(mouse);
}

bool BoxTool::OnMouseMove(IntPoint mouse) noexcept {
    const IntPoint before1 = corner1, before2 = corner2;
    if (activeHandle != kUnset) {
        moveHandle(activeHandle, bounded(mouse));
        normalise();
    } else if (placed && moveAnchor != kUnsetPoint) {
        moveBox(bounded(mouse));
    } else if (!placed) {
        corner2 = bounded(mouse);
    } else {
        return false;
    }
    if (isInsideBounds()) return true;
    corner1 = before1;
    corner2 = before2;
    return false;
}

void BoxTool::OnMouseUp(IntPoint mouse) noexcept {
    const IntPoint before1 = corner1, before2 = corner2;
    if (activeHandle != kUnset) {
        moveHandle(activeHandle, bounded(mouse));
    } else if (!placed) {
        corner2 = bounded(mouse);
        placed = true;
    } else {
        moveAnchor = kUnsetPoint;
    }
    normalise();
    if (isInsideBounds()) return;
    corner1 = before1;
    corner2 = before2;
}

void BoxTool::Draw(MutablePixelView view) noexcept {
    const IntRect area = box();
    if (area.isEmpty()) return;
    if (fills() && brush.isGradient()) brush.setGradientRectangle(insideOutline(area));
    drawShape(view, area);
    drawFrame(view, area);
}

CursorId BoxTool::HitCursor(IntPoint mouse) const noexcept {
    if (!placed) return CursorId::Arrow;
    for (int handle = 0; handle < kHandles; ++handle) {
        if (handleSquare(handle, handleRadius(pen)).contains(mouse)) return kHandleRules[handle].cursor;
    }
    return box().contains(mouse) ? CursorId::Move : CursorId::Arrow;
}

void BoxTool::commit(ImageDocument& document, PointMap toImage) noexcept {
    if (!fills() && !pen.current()) return;
    const auto draw = [&](MutablePixelView image) {
        const IntRect area = mappedBox(box(), toImage);
        if (fills() && brush.isGradient())
            brush.setGradientRectangle({area.x, area.y, box().width, box().height});
        drawShape(image, area);
    };
    if (!holdsBox() || drawIntoImage(document, draw)) Reset();
}

void BoxTool::reproject(PointMap toNewZoom) noexcept {
    if (!holdsBox()) return;
    corner1 = bounded(toNewZoom(corner1));
    corner2 = bounded(toNewZoom(corner2));
}

IntRect BoxTool::box() const noexcept {
    return {std::min(corner1.x, corner2.x), std::min(corner1.y, corner2.y), std::abs(corner2.x - corner1.x),
            std::abs(corner2.y - corner1.y)};
}

void BoxTool::drawFrame(MutablePixelView view, IntRect area) const noexcept {
    drawRectangle(view, Pen(kBlack), area);
    drawHandles(view, kFrameHandleRadius);
}

/// All black squares first: where handles overlap, none loses its white edge.
void BoxTool::drawHandles(MutablePixelView view, int radius) const noexcept {
    if (!placed || !showHandles) return;
    for (int handle = 0; handle < kHandles; ++handle)
        drawRectangle(view, Pen(kBlack), handleSquare(handle, radius));
    for (int handle = 0; handle < kHandles; ++handle)
        drawRectangle(view, Pen(kWhite), grown(handleSquare(handle, radius)));
}

IntRect BoxTool::insideOutline(IntRect area) const noexcept {
    const int width = static_cast<int>(pen.width);
    return {area.x + width, area.y + width, area.width - 2 * width, area.height - 2 * width};
}

IntPoint BoxTool::handleCentre(int handle) const noexcept {
    const HandleRule& rule = kHandleRules[handle];
    return {along(rule.x, corner1.x, corner2.x), along(rule.y, corner1.y, corner2.y)};
}

IntRect BoxTool::handleSquare(int handle, int radius) const noexcept {
    const IntPoint centre = handleCentre(handle);
    const int shift = kHandleRules[handle].x == Side::First ? 1 : 0;
    return {centre.x - radius - shift, centre.y - radius, 2 * radius + 1, 2 * radius + 1};
}

/// The first handle that a press here grabs, or kUnset.
int BoxTool::handleAt(IntPoint mouse) const noexcept {
    for (int handle = 0; handle < kHandles; ++handle) {
        if (hitsBoxHandle(handleCentre(handle), handleRadius(pen), mouse)) return handle;
    }
    return kUnset;
}

void BoxTool::moveHandle(int handle, IntPoint to) noexcept {
    const HandleRule& rule = kHandleRules[handle];
    if (rule.x != Side::Middle) (rule.x == Side::First ? corner1 : corner2).x = to.x;
    if (rule.y != Side::Middle) (rule.y == Side::First ? corner1 : corner2).y = to.y;
}

/// The box stops at the bounds, but the anchor follows the mouse: a drag back takes the box along at once.
void BoxTool::moveBox(IntPoint mouse) noexcept {
    const IntPoint before1 = corner1, before2 = corner2;
    const int dx = mouse.x - moveAnchor.x, dy = mouse.y - moveAnchor.y;
    corner1 = {corner1.x + dx, corner1.y + dy};
    corner2 = {corner2.x + dx, corner2.y + dy};
    if (!isInsideBounds()) {
        corner1 = before1;
        corner2 = before2;
    }
    moveAnchor = mouse;
}

/// Puts the corners in order. The grabbed handle is renumbered with them, so that it stays under the mouse.
void BoxTool::normalise() noexcept {
    const bool grabbed = activeHandle != kUnset;
    if (corner1.x > corner2.x) {
        std::swap(corner1.x, corner2.x);
        if (grabbed) activeHandle = kHandleRules[activeHandle].turnedLeftRight;
    }
    if (corner1.y > corner2.y) {
        std::swap(corner1.y, corner2.y);
        if (grabbed) activeHandle = kHandleRules[activeHandle].turnedUpDown;
    }
}

bool BoxTool::isInsideBounds() const noexcept { return bounds.contains(corner1) && bounds.contains(corner2); }

}  // namespace orvane
