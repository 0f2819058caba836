#include "tools/pie_tool.h"

#include "platform/graphics/shapes.h"

namespace orvane {

void PieTool::drawShape(MutablePixelView target, IntRect area) const noexcept {
    const IntRect inner = insideOutline(area);
    if (const std::optional<Brush> fill = brush.current())
        fillPie(target, *fill, inner, startAngle, sweepAngle);
    if (const std::optional<Pen> outline = pen.current())
        drawPie(target, *outline, inner, startAngle, sweepAngle);
}

}  // namespace orvane
