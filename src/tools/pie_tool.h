#pragma once

#include "tools/angle_box_tool.h"

namespace orvane {

/// Mode 9: a pie of the ellipse inside the box, which is smaller by the pen's width on every side; filled
/// with the brush and outlined with the pen, each as far as there is one.
class PieTool final : public AngleBoxTool {
 public:
    using AngleBoxTool::AngleBoxTool;

 protected:
    void drawShape(MutablePixelView target, IntRect area) const noexcept override;
};

}  // namespace orvane
