#include "control/mode_table.h"
#include "control/paint_mode.h"
#include "control/vistrel_control.h"

namespace orvane {

void VistrelControl::refresh() noexcept {
    if (updateLocked || window == nullptr || backBuffer.isNull()) return;
    // The mouse meets the scroll window where it is now, even if that is painted later.
    if (scrollWindowHasRoom()) updateScrollWindowView();
    if (!window->defersRedraw()) onPaint();
}

void VistrelControl::onPaint() noexcept {
    if (updateLocked || window == nullptr) return;
    const MutablePixelView target = backBuffer.overwrite();
    if (!target) return;
    if (scrollWindowHasRoom()) updateScrollWindowView();
    compose(target);
    backBuffer.markOpaque();
    window->present(target);
}

void VistrelControl::compose(MutablePixelView target) noexcept {
    paintView(target);
    if (const auto overlay = rulesOf(paintStatus).overlay) overlay(*this, target);
    if (scrollWindowHasRoom() && !document.isEmpty()) {
        scrollWindow.draw(*document.currentSurface(), document.view.zoom, target);
    }
}

bool VistrelControl::scrollWindowHasRoom() const noexcept {
    return document.view.overflows() && paintStatus != PaintMode::Rotation;
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

bool VistrelControl::isScrollWindowShown() const noexcept {
    return document.view.overflows() && scrollWindow.visible;
}

// The part of the image between the window's edges, or the image's own where it ends inside the window.
void VistrelControl::updateScrollWindowView() noexcept {
    const ViewState& view = document.view;
    const IntRect shown = document.imageRect();
    const IntPoint first{view.overflowX ? 0 : shown.x, view.overflowY ? 0 : shown.y};
    const IntPoint last{view.overflowX ? view.viewWidth - 1 : shown.right(),
                        view.overflowY ? view.viewHeight - 1 : shown.bottom()};
    const IntPoint corner = toImage(first), opposite = toImage(last);
    scrollWindow.setViewRect({corner.x + 1, corner.y + 1}, {opposite.x + 1, opposite.y + 1});
}

}  // namespace orvane
