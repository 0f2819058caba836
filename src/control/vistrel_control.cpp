#include "control/vistrel_control.h"

#include "control/paint_mode.h"

namespace orvane {

VistrelControl::VistrelControl(WindowServices* services) noexcept
    : window(services), eraserColor(document.bitmapBackColor) {}

VistrelControl::~VistrelControl() { onDestroy(); }

void VistrelControl::SetPaintStatus(int mode) noexcept {
    switch (paintStatus) {
        case PaintMode::Spray:
        case PaintMode::Selection:
            if (window != nullptr) window->stopTimer(kAnimationTimer);
            break;
        case PaintMode::Brush:
        case PaintMode::Pencil:
            setToolCursor(CursorId::Arrow);
            break;
        case PaintMode::Rotation:
            document.rotationPreview = false;
            break;
        default:
            break;
    }
    paintStatus = mode;
    switch (mode) {
        case PaintMode::Spray:
        case PaintMode::Selection:
            if (window != nullptr) window->startTimer(kAnimationTimer, kAnimationPeriodMs);
            break;
        case PaintMode::Brush:
            setToolCursor(CursorId::Brush);
            break;
        case PaintMode::Pencil:
            setToolCursor(CursorId::Pencil);
            break;
        default:
            break;
    }
}

void VistrelControl::ResetAllTools() noexcept {}

void VistrelControl::updateToolBounds() noexcept {
    const IntRect shown = document.imageRect();
    frameLimits = {shown, shown, shown};
}

void VistrelControl::reprojectToolGeometry() noexcept {}

void VistrelControl::setToolCursor(CursorId cursor) noexcept {
    if (cursor == cursorKind || window == nullptr) return;
    if (mouseCaptured) window->releaseMouse();
    cursorKind = cursor;
    mouseCaptured = cursor != CursorId::Arrow;
    if (mouseCaptured) window->captureMouse();
    window->setCursor(cursor);
}

void VistrelControl::onSize(int width, int height) noexcept {
    backBuffer = PixelSurface();  // its memory may serve the new one
    backBuffer = PixelSurface::create(width, height);
    document.view.setViewSize({width, height}, document.size());
}

void VistrelControl::onDropFile(std::u16string_view path) noexcept {
    try {
        const Value argument(path);
        fire(EventId::OnDropFile, {&argument, 1});
    } catch (...) {
        // No memory for the path: the drop is lost, as the window's own failures are.
    }
}

void VistrelControl::onDestroy() noexcept {
    if (window == nullptr) return;
    if (paintStatus == PaintMode::Spray || paintStatus == PaintMode::Selection) {
        window->stopTimer(kAnimationTimer);
    }
    if (mouseCaptured) window->releaseMouse();
    mouseCaptured = false;
    window = nullptr;
}

}  // namespace orvane
