#pragma once

#include <array>

#include "tools/paint_tool.h"

namespace orvane {

/// Mode 1: a straight line, drawn by one drag; afterwards either end can be dragged.
///
/// Ends move only while the mouse is inside `bounds`; a release outside leaves the line as it was last seen.
/// A commit needs a pen (without one nothing happens); a line without two ends is dropped without a step.
class LineTool final : public PaintTool {
 public:
    using PaintTool::PaintTool;

    void Reset() noexcept override;
    void OnMouseDown(MouseButton button, IntPoint mouse) noexcept override;
    bool OnMouseMove(IntPoint mouse) noexcept override;
    void OnMouseUp(IntPoint mouse) noexcept override;
    /// The line itself is shown while both ends have no negative coordinate.
    void Draw(MutablePixelView view) noexcept override;
    [[nodiscard]] CursorId HitCursor(IntPoint mouse) const noexcept override;
    /// Whether the end point is still unset.
    [[nodiscard]] bool awaitsSecondPoint() const noexcept override { return ends[1] == kUnsetPoint; }
    [[nodiscard]] bool holdsResult() const noexcept override { return holdsLine(); }
    void commit(ImageDocument& document, PointMap toImage) noexcept override;
    void reproject(PointMap toNewZoom) noexcept override;

    std::array<IntPoint, 2> ends{kUnsetPoint, kUnsetPoint};  ///< start, end; `activeHandle` is an index

 private:
    [[nodiscard]] bool holdsLine() const noexcept { return ends[0] != kUnsetPoint && ends[1] != kUnsetPoint; }
    [[nodiscard]] int endAt(IntPoint mouse) const noexcept;
    bool dragTo(IntPoint mouse) noexcept;
};

}  // namespace orvane
