#include "tools/curve_tool.h"

#include "platform/graphics/shapes.h"

namespace orvane {

void CurveTool::drawShape(MutablePixelView target, std::span<const IntPoint> points) const noexcept {
    if (const std::optional<Pen> outline = pen.current()) drawCurve(target, *outline, points);
}

bool CurveTool::isComplete() const noexcept { return vertices.size() >= 2 && pen.current(); }

}  // namespace orvane
