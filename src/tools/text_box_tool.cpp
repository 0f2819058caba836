#include "tools/text_box_tool.h"

#include "platform/graphics/shapes.h"
#include "tools/bounded_point.h"

namespace orvane {
namespace {

constexpr int kGrabbed = 0;
constexpr float kFrameWidth = 3.0f;
constexpr HatchBrush kFrameStripes{HatchBrush::kForwardDiagonal, 0xFFFFFFFFu, 0xFFFF0000u};

}  // namespace

void TextBoxTool::Reset() noexcept {
    PaintTool::Reset();
    box = {};
    dragAnchor = {};
}

void TextBoxTool::OnMouseDown(MouseButton button, IntPoint mouse) noexcept {
    if (button != MouseButton::Left || !box.contains(mouse)) return;
    dragAnchor = bounded(mouse);
    activeHandle = kGrabbed;
}

bool TextBoxTool::OnMouseMove(IntPoint mouse) noexcept {
    if (activeHandle != kGrabbed) return false;
    const IntPoint to = bounded(mouse);
    const IntPoint origin = bounded({box.x + to.x - dragAnchor.x, box.y + to.y - dragAnchor.y});
    box.x = origin.x;
    box.y = origin.y;
    dragAnchor = to;
    return true;
}

CursorId TextBoxTool::HitCursor(IntPoint mouse) const noexcept {
    const bool isOver = holdsContent() && bounds.contains(mouse) && box.contains(mouse);
    return isOver ? CursorId::Move : CursorId::Arrow;
}

void TextBoxTool::reproject(PointMap toNewZoom) noexcept {
    const IntPoint origin = bounded(toNewZoom({box.x, box.y}));
    box.x = origin.x;
    box.y = origin.y;
}

void TextBoxTool::drawFrame(MutablePixelView view) const noexcept {
    drawRectangle(view, Pen(kFrameStripes, kFrameWidth), box);
}

}  // namespace orvane
