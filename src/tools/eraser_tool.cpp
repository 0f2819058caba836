#include "tools/eraser_tool.h"

#include "platform/graphics/shapes.h"
#include "tools/grab_handle.h"
#include "tools/mouse_range.h"
#include "tools/nib_stamp.h"

namespace orvane {

void EraserTool::drawMarker(MutablePixelView view, IntPoint pointer) noexcept {
    const Nib current = nib();
    const IntPoint centre = withinMouseRange(pointer);
    NibStamp(current).draw(view, centre);
    drawRectangle(view, Pen(kBlack), current.boxAround(centre));
    drawDottedCross(view, centre, current.size + 3, {});
}

}  // namespace orvane
