#include "tools/selection_tool.h"

#include "platform/graphics/shapes.h"
#include "tools/grab_handle.h"

namespace orvane {

void SelectionTool::Reset() noexcept {
    FrameTool::Reset();
    dashOffset = kFirstDashOffset;
}

void SelectionTool::Draw(MutablePixelView view) noexcept {
    if (isUnset()) return;
    drawRectangle(view, Pen(kWhite), frame());
    Pen dashes(kBlack);
    dashes.dash = {{4.0f, 5.0f}, 2};
    dashes.dashOffset = dashOffset;
    drawRectangle(view, dashes, frame());
}

}  // namespace orvane
