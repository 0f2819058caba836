#include "tools/polygon_tool.h"

#include "platform/graphics/shapes.h"

namespace orvane {

void PolygonTool::drawShape(MutablePixelView target, std::span<const IntPoint> points) const noexcept {
    if (const std::optional<Brush> fill = brush.current()) fillPolygon(target, *fill, points);
    if (const std::optional<Pen> outline = pen.current()) drawPolygon(target, *outline, points);
}

bool PolygonTool::isComplete() const noexcept { return vertices.size() >= 2; }

std::optional<IntRect> PolygonTool::gradientArea() const noexcept { return boundingBox(); }

}  // namespace orvane
