#pragma once

#include "tools/point_list_tool.h"

namespace orvane {

/// Mode 10: a polygon, filled alternately with the brush and outlined with the pen, each as far as there is
/// one. It is shown from three vertices on and committed from two on, then as the line between them.
class PolygonTool final : public PointListTool {
 public:
    using PointListTool::PointListTool;

 protected:
    void drawShape(MutablePixelView target, std::span<const IntPoint> points) const noexcept override;
    [[nodiscard]] std::size_t fewestShown() const noexcept override { return 3; }
    [[nodiscard]] bool isComplete() const noexcept override;
    /// The vertices' bounding box.
    [[nodiscard]] std::optional<IntRect> gradientArea() const noexcept override;
};

}  // namespace orvane
