#pragma once

#include "tools/freehand_tool.h"

namespace orvane {

/// Mode 3: a polyline through every position of the mouse, with the shared pen.
///
/// It is one act of painting: a translucent pen leaves no darker spots where the trail crosses itself, so the
/// overlay is drawn as a whole each time. Cost: the trail's length.
class PencilTool final : public FreehandTool {
 public:
    using FreehandTool::FreehandTool;

    void Draw(MutablePixelView view) noexcept override;
    /// Without a pen nothing happens; a single point is a history step that draws nothing.
    void commit(ImageDocument& document, PointMap toImage) noexcept override;
};

}  // namespace orvane
