#pragma once

#include "tools/paint_tool.h"

namespace orvane {

/// Mode 21: a crosshair that can be dragged about the window. It changes nothing in the image and belongs to
/// the window: zooming and scrolling leave it where it is on the screen.
class TrackPointTool final : public PaintTool {
 public:
    using PaintTool::PaintTool;

    void OnMouseDown(MouseButton button, IntPoint mouse) noexcept override;
    bool OnMouseMove(IntPoint mouse) noexcept override;
    void OnMouseUp(IntPoint mouse) noexcept override;
    void Draw(MutablePixelView view) noexcept override;

    [[nodiscard]] bool isGrabbed() const noexcept { return activeHandle == 0; }

    IntPoint point;  ///< the crosshair's centre; it outlives a Reset
};

}  // namespace orvane
