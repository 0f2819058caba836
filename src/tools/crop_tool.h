#pragma once

#include "tools/frame_tool.h"

namespace orvane {

/// Mode 17: `Accept` cuts the image down to the frame.
class CropTool final : public FrameTool {
 public:
    using FrameTool::FrameTool;

    /// The pixels under both corners stay. A frame of less than 4 x 4 image pixels leaves the image as it is;
    /// the view is centred in any case.
    void commit(ImageDocument& document, PointMap toImage) noexcept override;
    void reproject(PointMap toNewZoom) noexcept override { reprojectCorners(toNewZoom); }
};

}  // namespace orvane
