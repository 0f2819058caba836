#include "tools/rectangle_tool.h"

#include "platform/graphics/shapes.h"
#include "tools/grab_handle.h"

namespace orvane {

void RectangleTool::drawShape(MutablePixelView target, IntRect area) const noexcept {
    if (const std::optional<Brush> fill = brush.current()) fillRectangle(target, *fill, area);
    if (const std::optional<Pen> outline = pen.current()) drawRectangle(target, *outline, area);
}

void RectangleTool::drawFrame(MutablePixelView view, IntRect /*area*/) const noexcept {
    drawHandles(view, handleRadius(pen));
}

}  // namespace orvane
