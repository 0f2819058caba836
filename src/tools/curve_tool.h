#pragma once

#include "tools/point_list_tool.h"

namespace orvane {

/// Mode 4: an open cardinal spline through the vertices, with the pen; two vertices at least.
class CurveTool final : public PointListTool {
 public:
    using PointListTool::PointListTool;

 protected:
    void drawShape(MutablePixelView target, std::span<const IntPoint> points) const noexcept override;
    [[nodiscard]] std::size_t fewestShown() const noexcept override { return 2; }
    [[nodiscard]] bool isComplete() const noexcept override;
};

}  // namespace orvane
