#include "tools/angle_box_tool.h"

#include <array>

#include "platform/graphics/shapes.h"
#include "tools/bounded_point.h"
#include "tools/grab_handle.h"

namespace orvane {
namespace {

bool isWithin(std::optional<IntPoint> centre, int radius, IntPoint mouse) noexcept {
    if (!centre) return false;
    return IntRect{centre->x - radius, centre->y - radius, 2 * radius + 1, 2 * radius + 1}.contains(mouse);
}

void drawDiamond(MutablePixelView view, std::optional<IntPoint> centre, int radius, Argb colour) noexcept {
    if (!centre) return;
    const auto [x, y] = *centre;
    const std::array<IntPoint, 4> corners{
        {{x, y - radius}, {x + radius, y}, {x, y + radius}, {x - radius, y}}};
    fillPolygon(view, SolidBrush{colour}, corners);
    drawPolygon(view, Pen(kBlack), corners);
}

/// The cursors of diagonal drags win over that of an angle handle on the same spot.
bool givesWay(CursorId cursor) noexcept {
    return cursor != CursorId::SizeNorthwestSoutheast && cursor != CursorId::SizeNortheastSouthwest;
}

}  // namespace

void AngleBoxTool::Reset() noexcept {
    BoxTool::Reset();
    draggingStart = draggingEnd = false;
}

void AngleBoxTool::OnMouseDown(MouseButton button, IntPoint mouse) noexcept {
    const int radius = handleRadius(pen);
    if (isWithin(startHandle(), radius, mouse))
        draggingStart = true;
    else if (isWithin(endHandle(), radius, mouse))
        draggingEnd = true;
    else
        BoxTool::OnMouseDown(button, mouse);
}

bool AngleBoxTool::OnMouseMove(IntPoint mouse) noexcept {
    return dragAngle(mouse) || BoxTool::OnMouseMove(mouse);
}

void AngleBoxTool::OnMouseUp(IntPoint mouse) noexcept {
    if (!dragAngle(mouse)) BoxTool::OnMouseUp(mouse);
    draggingStart = draggingEnd = false;
}

CursorId AngleBoxTool::HitCursor(IntPoint mouse) const noexcept {
    const CursorId cursor = BoxTool::HitCursor(mouse);
    const int radius = handleRadius(pen) + 1;
    const bool onHandle = isWithin(startHandle(), radius, mouse) || isWithin(endHandle(), radius, mouse);
    return onHandle && givesWay(cursor) ? CursorId::Handle : cursor;
}

std::optional<IntPoint> AngleBoxTool::startHandle() const noexcept { return ellipse().handleAt(startAngle); }

std::optional<IntPoint> AngleBoxTool::endHandle() const noexcept {
    return ellipse().handleAt(double(startAngle) + sweepAngle);
}

void AngleBoxTool::drawFrame(MutablePixelView view, IntRect area) const noexcept {
    BoxTool::drawFrame(view, area);
    if (!showHandles) return;
    const int radius = handleRadius(pen) + 1;
    drawDiamond(view, startHandle(), radius, kYellow);
    drawDiamond(view, endHandle(), radius, kWhite);
}

/// Takes the grabbed angle handle along; answers whether there is one, also where the box has no room for it.
bool AngleBoxTool::dragAngle(IntPoint mouse) noexcept {
    if (!draggingStart && !draggingEnd) return false;
    const EllipseGeometry geometry = ellipse();
    const std::optional<IntPoint> handle = geometry.project(bounded(mouse));
    if (!handle) return true;
    if (draggingStart) {
        if (const auto angle = geometry.angleOf(*handle)) startAngle = static_cast<float>(*angle);
    } else if (const std::optional<IntPoint> start = startHandle()) {
        if (const auto sweep = geometry.sweepBetween(*start, *handle))
            sweepAngle = static_cast<float>(*sweep);
    }
    return true;
}

}  // namespace orvane
