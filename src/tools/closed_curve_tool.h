#pragma once

#include "tools/point_list_tool.h"

namespace orvane {

/// Mode 5: a closed cardinal spline through the vertices, filled with the brush and outlined with the pen,
/// each as far as there is one; three vertices at least.
class ClosedCurveTool final : public PointListTool {
 public:
    using PointListTool::PointListTool;

 protected:
    void drawShape(MutablePixelView target, std::span<const IntPoint> points) const noexcept override;
    [[nodiscard]] std::size_t fewestShown() const noexcept override { return 3; }
    [[nodiscard]] bool isComplete() const noexcept override;
    /// The vertices' bounding box, a tenth wider on every side: the spline swings beyond its vertices.
    [[nodiscard]] std::optional<IntRect> gradientArea() const noexcept override;
};

}  // namespace orvane
