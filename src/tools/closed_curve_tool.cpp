#include "tools/closed_curve_tool.h"

#include "platform/graphics/shapes.h"

namespace orvane {

void ClosedCurveTool::drawShape(MutablePixelView target, std::span<const IntPoint> points) const noexcept {
    if (const std::optional<Brush> fill = brush.current()) fillClosedCurve(target, *fill, points);
    if (const std::optional<Pen> outline = pen.current()) drawClosedCurve(target, *outline, points);
}

bool ClosedCurveTool::isComplete() const noexcept { return vertices.size() >= 3; }

std::optional<IntRect> ClosedCurveTool::gradientArea() const noexcept {
    const IntRect box = boundingBox();
    const int left = box.width / 10, top = box.height / 10;
    return IntRect{box.x - left, box.y - top, box.width + 2 * left, box.height + 2 * top};
}

}  // namespace orvane
