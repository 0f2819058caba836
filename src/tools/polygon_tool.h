#pragma once

#include "tools/point_list_tool.h"

namespace orvane {

/// Mode 10: a polygon, filled alternately with the brush and outlined with the pen, each as far as there is
/// one. It is shown from three vertices on and committed from two on.
class PolygonTool final : public PointListTool {
 public:
    using PointListTool::PointListTool;

 protected:
    void drawShape(MutablePixelView target, std::span<const IntPoint> points) const noexcept override;
    [[nodiscard]] bool isComplete() const noexcept override;
    /// The vertices' bounding box.
    [[nodiscard]] std::optional<IntRect> gradientArea() const noexcept override;
};

}  // namespace orvane
