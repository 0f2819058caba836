#pragma once

#include "tools/box_tool.h"

namespace orvane {

/// Mode 11: a rectangle, filled with the brush and outlined with the pen, each as far as there is one. It is
/// its own frame, and its handles grow with the pen.
class RectangleTool final : public BoxTool {
 public:
    using BoxTool::BoxTool;

 protected:
    void drawShape(MutablePixelView target, IntRect area) const noexcept override;
    void drawFrame(MutablePixelView view, IntRect area) const noexcept override;
};

}  // namespace orvane
