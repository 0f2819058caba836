#include "tools/arc_tool.h"

#include "platform/graphics/shapes.h"

namespace orvane {

void ArcTool::drawShape(MutablePixelView target, IntRect area) const noexcept {
    if (const std::optional<Pen> outline = pen.current())
        drawArc(target, *outline, insideOutline(area), startAngle, sweepAngle);
}

}  // namespace orvane
