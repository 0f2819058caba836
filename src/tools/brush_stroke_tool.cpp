#include "tools/brush_stroke_tool.h"

#include "tools/mouse_range.h"
#include "tools/nib_stamp.h"

namespace orvane {

Nib BrushStrokeTool::nib() const noexcept {
    return {static_cast<NibShape>(freehand_.brushStyle), freehand_.brushSize, brush.colour1 | 0xFF000000u};
}

// The cross stands out from a square or circle. A bar has it in its own length, and without the line that
// would lie on the bar.
void BrushStrokeTool::drawMarker(MutablePixelView view, IntPoint pointer) noexcept {
    const Nib current = nib();
    const IntPoint centre = withinMouseRange(pointer);
    if (!current.isBar()) {
        NibStamp(current).draw(view, centre);
        drawDottedCross(view, centre, current.size + 3, {});
        return;
    }
    drawNibBar(view, current, centre);
    drawDottedCross(view, centre, current.size,
                    {current.shape != NibShape::VerticalBar, current.shape != NibShape::HorizontalBar});
}

}  // namespace orvane
