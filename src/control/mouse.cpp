// Mouse and timer messages: what belongs to the control itself; the active mode does the rest.
#include <algorithm>

#include "control/mode_table.h"
#include "control/paint_mode.h"
#include "control/vistrel_control.h"
#include "view/view_mapping.h"

namespace orvane {
namespace {

void run(ModeRules::MouseHandler handler, VistrelControl& control, IntPoint mouse) {
    if (handler != nullptr) handler(control, mouse);
}

// What a window's message can express. Tools reckon with it: their sums fit into an int.
IntPoint messagePosition(int x, int y) {
    constexpr int kLowest = -32768, kHighest = 32767;
    return {std::clamp(x, kLowest, kHighest), std::clamp(y, kLowest, kHighest)};
}

}  // namespace

void VistrelControl::onLeftDown(int x, int y) noexcept {
    if (document.isEmpty()) return;
    const IntPoint mouse = messagePosition(x, y);
    if (isScrollWindowShown()) {
        if (scrollWindow.closeButtonHit(mouse)) return fire(EventId::OnHitCloseScrollWindow);
        if (scrollWindow.press(mouse)) return refresh();
    }
    run(rulesOf(paintStatus).leftDown, *this, mouse);
    if (paintStatus > 0) return;
    beginPan(document, mouse);
    if (document.view.overflows()) captureMouse();
}

void VistrelControl::onRightDown(int x, int y) noexcept {
    if (document.isEmpty()) return;
    run(rulesOf(paintStatus).rightDown, *this, messagePosition(x, y));
}

void VistrelControl::onMouseMove(int x, int y, MouseButtons held) noexcept {
    if (document.isEmpty()) return;
    const IntPoint mouse = messagePosition(x, y);
    if (held.left) {
        drag(mouse);
    } else {
        hover(mouse, held);
    }
}

void VistrelControl::drag(IntPoint mouse) noexcept {
    if (isScrollWindowShown() && scrollWindow.isDragging()) {
        if (!scrollWindow.drag(mouse)) return;
        scrollTo(document, scrollWindow.targetPoint());
        updateToolBounds();
        return refresh();
    }
    if (panTo(document, mouse)) {
        updateToolBounds();
        refresh();
    } else {
        run(rulesOf(paintStatus).drag, *this, mouse);
    }
}

void VistrelControl::hover(IntPoint mouse, MouseButtons held) noexcept {
    if (isScrollWindowShown() && scrollWindow.thumbnailHit(mouse)) return releaseMouse();
    run(rulesOf(paintStatus).hover, *this, mouse);
    if (!held.right) run(rulesOf(paintStatus).hoverNoButton, *this, mouse);
}

void VistrelControl::onLeftUp(int x, int y) noexcept {
    if (document.isEmpty()) return;
    const IntPoint mouse = messagePosition(x, y);
    if (isScrollWindowShown() && (scrollWindow.isDragging() || scrollWindow.closeButtonHit(mouse))) {
        if (scrollWindow.release(mouse)) refresh();
        return;
    }
    if (paintStatus <= 0) {
        endPan(document);
        releaseMouse();
    }
    run(rulesOf(paintStatus).leftUp, *this, mouse);
    if (paintStatus >= 1) refresh();
}

void VistrelControl::onTimer() noexcept {
    if (document.isEmpty()) return;
    if (paintStatus == PaintMode::Spray) {
        if (!tools.spray.hasCentre()) return;
        tools.spray.burst();
    } else {
        tools.selection.crawl();
    }
    refresh();
}

void VistrelControl::onDropFile(std::u16string_view path) noexcept {
    try {
        const Value argument(path);
        fire(EventId::OnDropFile, {&argument, 1});
    } catch (...) {
        // No memory for the path: the drop is lost, as the window's own failures are.
    }
}

}  // namespace orvane
