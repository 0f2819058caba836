#pragma once

#include "tools/angle_box_tool.h"

namespace orvane {

/// Mode 6: an arc of the ellipse inside the box, which is smaller by the pen's width on every side; drawn
/// with the pen, without which there is no commit.
class ArcTool final : public AngleBoxTool {
 public:
    using AngleBoxTool::AngleBoxTool;

 protected:
    void drawShape(MutablePixelView target, IntRect area) const noexcept override;
    [[nodiscard]] bool fills() const noexcept override { return false; }
};

}  // namespace orvane
