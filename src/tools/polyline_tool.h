#pragma once

#include "tools/point_list_tool.h"

namespace orvane {

/// Mode 2: straight lines from vertex to vertex, with the pen; two vertices at least.
class PolylineTool final : public PointListTool {
 public:
    using PointListTool::PointListTool;

 protected:
    void drawShape(MutablePixelView target, std::span<const IntPoint> points) const noexcept override;
    [[nodiscard]] std::size_t fewestShown() const noexcept override { return 2; }
    [[nodiscard]] bool isComplete() const noexcept override;
};

}  // namespace orvane
