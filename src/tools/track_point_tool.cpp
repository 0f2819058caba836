#include "tools/track_point_tool.h"

#include <cstdlib>

#include "platform/graphics/shapes.h"

namespace orvane {
namespace {

constexpr int kArm = 15;  // how far the arms reach, and how near a press must be
constexpr int kGap = 3;   // what stays clear around the centre

}  // namespace

void TrackPointTool::OnMouseDown(MouseButton, IntPoint mouse) noexcept {
    if (std::abs(mouse.x - point.x) <= kArm && std::abs(mouse.y - point.y) <= kArm) activeHandle = 0;
}

bool TrackPointTool::OnMouseMove(IntPoint mouse) noexcept {
    if (!isGrabbed() || !bounds.contains(mouse)) return false;
    point = mouse;
    return true;
}

void TrackPointTool::OnMouseUp(IntPoint mouse) noexcept {
    OnMouseMove(mouse);
    Reset();
}

void TrackPointTool::Draw(MutablePixelView view) noexcept {
    if (!showHandles) return;
    const Pen red(0xFFFF0000u, 2.0f);
    const auto [x, y] = point;
    drawLine(view, red, {x - kArm, y}, {x - kGap, y});
    drawLine(view, red, {x, y - kArm}, {x, y - kGap});
    drawLine(view, red, {x + kArm, y}, {x + kGap, y});
    drawLine(view, red, {x, y + kArm}, {x, y + kGap});
}

}  // namespace orvane
