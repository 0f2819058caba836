#pragma once

#include "tools/stroke_tool.h"
#include "tools/tool_settings.h"

namespace orvane {

/// Mode 15: stamps squares of EraserSize in the eraser colour. A translucent colour is laid over the image,
/// at every stamp anew; nothing becomes transparent.
class EraserTool final : public StrokeTool {
 public:
    EraserTool(const PenSettings& sharedPen, BrushSettings& sharedBrush, const FreehandSettings& freehand,
               const Argb& eraserColor) noexcept
        : StrokeTool(sharedPen, sharedBrush), freehand_(freehand), eraserColor_(eraserColor) {}

    void drawMarker(MutablePixelView view, IntPoint pointer) noexcept override;

 private:
    [[nodiscard]] Nib nib() const noexcept override {
        return {NibShape::Square, freehand_.eraserSize, eraserColor_};
    }

    const FreehandSettings& freehand_;
    const Argb& eraserColor_;
};

}  // namespace orvane
