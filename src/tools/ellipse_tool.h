#pragma once

#include "tools/box_tool.h"

namespace orvane {

/// Mode 8: an ellipse inside the box, smaller by the pen's width on every side; filled with the brush and
/// outlined with the pen, each as far as there is one.
class EllipseTool final : public BoxTool {
 public:
    using BoxTool::BoxTool;

 protected:
    void drawShape(MutablePixelView target, IntRect area) const noexcept override;
};

}  // namespace orvane
