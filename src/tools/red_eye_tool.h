#pragma once

#include "tools/frame_tool.h"

namespace orvane {

/// Mode 19: the release of the frame takes the red out of the eye that it surrounds.
class RedEyeTool final : public FrameTool {
 public:
    using FrameTool::FrameTool;

    /// One step for a placed frame, also where nothing is red; nothing without a frame.
    void commit(ImageDocument& document, PointMap toImage) noexcept override;
};

}  // namespace orvane
