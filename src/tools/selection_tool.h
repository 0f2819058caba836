#pragma once

#include "tools/frame_tool.h"

namespace orvane {

/// Mode 18: the frame is the selection that is copied and cut. Its outline crawls.
class SelectionTool final : public FrameTool {
 public:
    using FrameTool::FrameTool;

    void Reset() noexcept override;
    void Draw(MutablePixelView view) noexcept override;
    void reproject(PointMap toNewZoom) noexcept override { reprojectCorners(toNewZoom); }
    /// Lets the dashes crawl on by one pixel.
    void crawl() noexcept { dashOffset -= 1.0f; }

    static constexpr float kFirstDashOffset = 10000.0f;
    float dashOffset = kFirstDashOffset;
};

}  // namespace orvane
