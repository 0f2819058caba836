#pragma once

#include <vector>

#include "tools/paint_tool.h"

namespace orvane {

/// A tool that paints along the mouse: every position is appended while the button is held, and the release
/// commits. Presses, moves and releases themselves do nothing.
class FreehandTool : public PaintTool {
 public:
    FreehandTool(const PenSettings& sharedPen, BrushSettings& sharedBrush) noexcept
        : PaintTool(sharedPen, sharedBrush) {
        showHandles = false;
    }

    void Reset() noexcept override;
    void OnMouseDown(MouseButton /*button*/, IntPoint /*mouse*/) noexcept override {}
    bool OnMouseMove(IntPoint /*mouse*/) noexcept override { return false; }
    void OnMouseUp(IntPoint /*mouse*/) noexcept override {}
    /// Appends the point unless it is the last one once more. A point that there is no memory for is dropped.
    bool AppendPoint(IntPoint point) noexcept override;

 protected:
    [[nodiscard]] const std::vector<IntPoint>& points() const noexcept { return points_; }
    void dropLastPoint() noexcept { points_.pop_back(); }

 private:
    std::vector<IntPoint> points_;  // window pixels, no two equal ones in a row
};

}  // namespace orvane
