#include "control/vistrel_control.h"

namespace orvane {

void VistrelControl::refresh() noexcept {
    if (updateLocked || window == nullptr) return;
    const MutablePixelView target = backBuffer.overwrite();
    if (!target) return;
    viewPainter_.paint(document, backgroundColor, target);
    backBuffer.markOpaque();
    window->present(target);
}

}  // namespace orvane
