#include "tools/polyline_tool.h"

#include "platform/graphics/shapes.h"

namespace orvane {

void PolylineTool::drawShape(MutablePixelView target, std::span<const IntPoint> points) const noexcept {
    if (const std::optional<Pen> outline = pen.current()) drawLines(target, *outline, points);
}

bool PolylineTool::isComplete() const noexcept { return vertices.size() >= 2 && pen.current(); }

}  // namespace orvane
