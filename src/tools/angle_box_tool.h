#pragma once

#include <optional>

#include "tools/box_tool.h"
#include "tools/ellipse_geometry.h"

namespace orvane {

/// What modes 6 and 9 add to a box: two diamonds on the ellipse in it, by which the ends of the arc are
/// dragged, the start in yellow and the end in white. Dragging the start keeps the sweep. The diamonds exist
/// while the box is at least 4 pixels wide and high, and they may be dragged beyond `bounds`.
///
/// The angles outlive Reset: the next figure has those of the last one.
class AngleBoxTool : public BoxTool {
 public:
    using BoxTool::BoxTool;

    void Reset() noexcept override;
    void OnMouseDown(MouseButton button, IntPoint mouse) noexcept override;
    bool OnMouseMove(IntPoint mouse) noexcept override;
    void OnMouseUp(IntPoint mouse) noexcept override;
    [[nodiscard]] CursorId HitCursor(IntPoint mouse) const noexcept override;

    [[nodiscard]] std::optional<IntPoint> startHandle() const noexcept;
    [[nodiscard]] std::optional<IntPoint> endHandle() const noexcept;

    float startAngle = 30.0f, sweepAngle = 145.0f;  ///< degrees, clockwise
    bool draggingStart = false, draggingEnd = false;

 protected:
    void drawFrame(MutablePixelView view, IntRect area) const noexcept override;

 private:
    [[nodiscard]] EllipseGeometry ellipse() const noexcept { return {corner1, corner2}; }
    bool dragAngle(IntPoint mouse) noexcept;
};

}  // namespace orvane
