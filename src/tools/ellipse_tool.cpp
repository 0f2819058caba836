#include "tools/ellipse_tool.h"

#include "platform/graphics/shapes.h"

namespace orvane {

void EllipseTool::drawShape(MutablePixelView target, IntRect area) const noexcept {
    const IntRect inner = insideOutline(area);
    if (const std::optional<Brush> fill = brush.current()) fillEllipse(target, *fill, inner);
    if (const std::optional<Pen> outline = pen.current()) drawEllipse(target, *outline, inner);
}

}  // namespace orvane
