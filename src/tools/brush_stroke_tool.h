#pragma once

#include "tools/stroke_tool.h"
#include "tools/tool_settings.h"

namespace orvane {

/// Mode 12: paints with the nib of ToolBrushStyle and ToolBrushSize in brush colour 1 made opaque.
class BrushStrokeTool final : public StrokeTool {
 public:
    BrushStrokeTool(const PenSettings& sharedPen, BrushSettings& sharedBrush,
                    const FreehandSettings& freehand) noexcept
        : StrokeTool(sharedPen, sharedBrush), freehand_(freehand) {}

    void drawMarker(MutablePixelView view, IntPoint pointer) noexcept override;

 private:
    [[nodiscard]] Nib nib() const noexcept override;

    const FreehandSettings& freehand_;
};

}  // namespace orvane
