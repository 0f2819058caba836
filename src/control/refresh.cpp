#include "control/mode_table.h"
#include "control/vistrel_control.h"

namespace orvane {

void VistrelControl::refresh() noexcept {
    if (updateLocked || window == nullptr) return;
    const MutablePixelView target = backBuffer.overwrite();
    if (!target) return;
    paintView(target);
    if (const auto overlay = rulesOf(paintStatus).overlay) overlay(*this, target);
    backBuffer.markOpaque();
    window->present(target);
}

void VistrelControl::paintView(MutablePixelView target) noexcept {
    StrokeTool* stroke = tools.strokeOfMode(paintStatus);
    if (stroke != nullptr && stroke->trailLength() > 0) {
        trail_.paint(viewPainter_, document, backgroundColor, *stroke, target);
    } else {
        trail_.release();
        viewPainter_.paint(document, backgroundColor, target);
    }
}

}  // namespace orvane
