#include "tools/line_tool.h"

#include <cstddef>

#include "platform/graphics/shapes.h"
#include "tools/bounded_point.h"
#include "tools/grab_handle.h"
#include "tools/image_commit.h"

namespace orvane {

void LineTool::Reset() noexcept {
    PaintTool::Reset();
    ends = {kUnsetPoint, kUnsetPoint};
}

void LineTool::OnMouseDown(MouseButton /*button*/, IntPoint mouse) noexcept {
    if (ends[0] == kUnsetPoint)
        ends[0] = bounded(mouse);
    else
        activeHandle = endAt(mouse);
}

bool LineTool::OnMouseMove(IntPoint mouse) noexcept { return bounds.contains(mouse) && dragTo(mouse); }

void LineTool::OnMouseUp(IntPoint mouse) noexcept {
    const bool inside = bounds.contains(mouse);
    if (inside) dragTo(mouse);
    if (!inside || activeHandle == kUnset) placed = true;
}

void LineTool::Draw(MutablePixelView view) noexcept {
    if (placed && showHandles) {
        for (const IntPoint end : ends) drawGrabHandle(view, end, handleRadius(pen));
    }
    const bool shown = ends[0].x >= 0 && ends[0].y >= 0 && ends[1].x >= 0 && ends[1].y >= 0;
    const std::optional<Pen> outline = pen.current();
    if (shown && outline) drawLine(view, *outline, ends[0], ends[1]);
}

CursorId LineTool::HitCursor(IntPoint mouse) const noexcept {
    return holdsLine() && endAt(mouse) != kUnset ? CursorId::Handle : CursorId::Arrow;
}

void LineTool::commit(ImageDocument& document, PointMap toImage) noexcept {
    const std::optional<Pen> outline = pen.current();
    if (!outline) return;
    const auto draw = [&](MutablePixelView image) {
        drawLine(image, *outline, toImage(ends[0]), toImage(ends[1]));
    };
    if (!holdsLine() || drawIntoImage(document, draw)) Reset();
}

void LineTool::reproject(PointMap toNewZoom) noexcept {
    if (!holdsLine()) return;
    for (IntPoint& end : ends) end = bounded(toNewZoom(end));
}

/// The end whose handle the mouse is on, the start before the end.
int LineTool::endAt(IntPoint mouse) const noexcept {
    const int radius = handleRadius(pen);
    if (hitsVertex(ends[0], radius, mouse)) return 0;
    return hitsVertex(ends[1], radius, mouse) ? 1 : kUnset;
}

/// Takes along what the drag moves: a grabbed end, or the end of a line that is not placed yet.
bool LineTool::dragTo(IntPoint mouse) noexcept {
    if (activeHandle == kUnset && placed) return false;
    ends[activeHandle == kUnset ? 1 : std::size_t(activeHandle)] = bounded(mouse);
    return true;
}

}  // namespace orvane
