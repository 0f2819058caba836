#include "tools/box_tool.h"

#include <algorithm>
#include <cstdlib>

#include "platform/graphics/shapes.h"
#include "tools/bounded_point.h"
#include "tools/box_handles.h"
#include "tools/grab_handle.h"
#include "tools/image_commit.h"

namespace orvane {
namespace {

constexpr int kFrameHandleRadius = 3;

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
        box_handles::move(activeHandle, bounded(mouse), corner1, corner2);
        box_handles::normalise(corner1, corner2, activeHandle);
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
        box_handles::move(activeHandle, bounded(mouse), corner1, corner2);
    } else if (!placed) {
        corner2 = bounded(mouse);
        placed = true;
    } else {
        moveAnchor = kUnsetPoint;
    }
    box_handles::normalise(corner1, corner2, activeHandle);
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
    for (int handle = 0; handle < box_handles::kCount; ++handle) {
        if (handleSquare(handle, handleRadius(pen)).contains(mouse))
            return box_handles::ruleOf(handle).cursor;
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
    for (int handle = 0; handle < box_handles::kCount; ++handle)
        drawRectangle(view, Pen(kBlack), handleSquare(handle, radius));
    for (int handle = 0; handle < box_handles::kCount; ++handle)
        drawRectangle(view, Pen(kWhite), grown(handleSquare(handle, radius)));
}

IntRect BoxTool::insideOutline(IntRect area) const noexcept {
    const int width = static_cast<int>(pen.width);
    return {area.x + width, area.y + width, area.width - 2 * width, area.height - 2 * width};
}

IntPoint BoxTool::handleCentre(int handle) const noexcept {
    return box_handles::centreOf(handle, corner1, corner2);
}

IntRect BoxTool::handleSquare(int handle, int radius) const noexcept {
    const IntPoint centre = handleCentre(handle);
    const int shift = box_handles::ruleOf(handle).x == box_handles::Side::First ? 1 : 0;
    return {centre.x - radius - shift, centre.y - radius, 2 * radius + 1, 2 * radius + 1};
}

/// The first handle that a press here grabs, or kUnset.
int BoxTool::handleAt(IntPoint mouse) const noexcept {
    for (int handle = 0; handle < box_handles::kCount; ++handle) {
        if (hitsBoxHandle(handleCentre(handle), handleRadius(pen), mouse)) return handle;
    }
    return kUnset;
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

bool BoxTool::isInsideBounds() const noexcept { return bounds.contains(corner1) && bounds.contains(corner2); }

}  // namespace orvane
