#include "control/vistrel_control.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "control/mode_table.h"
#include "control/paint_mode.h"
#include "view/view_mapping.h"

namespace orvane {
namespace {

// Extreme zooms take points far away. Tools reckon with points whose sums fit into an int.
IntPoint withinReach(IntPoint point) {
    constexpr int kReach = 1 << 24;
    return {std::clamp(point.x, -kReach, kReach), std::clamp(point.y, -kReach, kReach)};
}

}  // namespace

VistrelControl::VistrelControl(WindowServices* windowServices, ClipboardServices* clipboardServices) noexcept
    : window(windowServices),
      clipboard(clipboardServices),
      eraserColor(document.bitmapBackColor),
      tools(pen, brush, freehand, eraserColor, text, stamp) {}

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
        case PaintMode::Rotation:
            rotationBar.reset();
            document.rotationPreview = true;
            document.rotationAngle = 0;
            document.view.centreView();
            break;
        case PaintMode::TrackPoint:
            tools.trackPoint.point = {document.view.viewWidth / 2, document.view.viewHeight / 2};
            break;
        default:
            break;
    }
}

void VistrelControl::ResetAllTools() noexcept { tools.resetAll(); }

void VistrelControl::updateToolBounds() noexcept {
    const IntRect shown = document.imageRect();
    tools.crop.limit = tools.selection.limit = tools.redEye.limit = shown;
}

void VistrelControl::reprojectToolGeometry() noexcept {
    PaintTool* tool = tools.ofMode(paintStatus);
    if (tool == nullptr) return;
    const IntSize outer = outerSize();
    tool->reproject([&](IntPoint point) {
        const IntPoint image = windowToImage(document, document.view.previousZoom, point);
        return withinReach(imageToWindow(document, document.view.zoom, image, outer));
    });
}

void VistrelControl::commit(PaintTool& tool) noexcept {
    tool.commit(document, [this](IntPoint point) { return withinReach(toImage(point)); });
}

void VistrelControl::placeStamp(PixelSurface picture) noexcept {
    tools.imageStamp.setPicture(std::move(picture));
    SetPaintStatus(PaintMode::ImageStamp);
    tools.imageStamp.place([this](IntPoint image) { return withinReach(toWindow(image)); },
                           showsActualSize());
    refresh();
}

void VistrelControl::placeText(std::u16string_view string) noexcept {
    if (!tools.text.place(string, toWindow({0, 0}))) return;
    SetPaintStatus(PaintMode::Text);
    refresh();
}

void VistrelControl::retypeText(std::u16string_view string) noexcept {
    const IntPoint corner = toWindow({0, 0});
    const bool typesOn = paintStatus == PaintMode::Text && tools.text.isPlaced();
    const bool taken = typesOn ? tools.text.setText(string)
                               : tools.text.place(string, {std::max(corner.x, 0), std::max(corner.y, 0)});
    if (!taken) return;
    if (paintStatus != PaintMode::Text) SetPaintStatus(PaintMode::Text);
    refresh();
}

void VistrelControl::CommitPending() noexcept {
    if (!document.isEmpty() && rulesOf(paintStatus).acceptCommits) commit(*tools.ofMode(paintStatus));
}

IntSize VistrelControl::outerSize() const noexcept {
    return window != nullptr ? window->outerSize()
                             : IntSize{document.view.viewWidth, document.view.viewHeight};
}

IntPoint VistrelControl::toImage(IntPoint mouse) const noexcept {
    return windowToImage(document, document.view.zoom, mouse);
}

IntPoint VistrelControl::toWindow(IntPoint image) const noexcept {
    return imageToWindow(document, document.view.zoom, image, outerSize());
}

bool VistrelControl::showsActualSize() const noexcept {
    constexpr double kTolerance = 0.01;
    return std::abs(document.view.zoom - 1.0) < kTolerance;
}

void VistrelControl::fireAt(EventId event, IntPoint mouse) noexcept {
    const IntPoint image = toImage(mouse);
    const Value arguments[] = {Value(image.x), Value(image.y)};
    fire(event, arguments);
}

void VistrelControl::captureMouse() noexcept {
    if (window == nullptr) return;
    if (mouseCaptured) window->releaseMouse();
    window->captureMouse();
    mouseCaptured = true;
}

void VistrelControl::releaseMouse() noexcept {
    if (mouseCaptured && window != nullptr) window->releaseMouse();
    mouseCaptured = false;
}

void VistrelControl::setToolCursor(CursorId cursor) noexcept {
    if (cursor == cursorKind || window == nullptr) return;
    releaseMouse();
    if (cursor != CursorId::Arrow) captureMouse();
    cursorKind = cursor;
    window->setCursor(cursor);
}

void VistrelControl::onSize(int width, int height) noexcept {
    backBuffer = PixelSurface();  // its memory may serve the new one
    backBuffer = PixelSurface::create(width, height);
    document.view.setViewSize({width, height}, document.size());
    tools.setClientSize({width, height});
    updateToolBounds();
    rotationBar.layout({width, height});
    scrollWindow.setClientSize({width, height});
}

void VistrelControl::onDestroy() noexcept {
    if (window == nullptr) return;
    if (paintStatus == PaintMode::Spray || paintStatus == PaintMode::Selection) {
        window->stopTimer(kAnimationTimer);
    }
    releaseMouse();
    window = nullptr;
}

}  // namespace orvane
