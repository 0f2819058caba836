#include "control/tool_set.h"

namespace orvane {
namespace {

constexpr int kModeCount = PaintMode::TrackPoint + 1;

}  // namespace

ToolSet::ToolSet(const PenSettings& pen, BrushSettings& brush, const FreehandSettings& freehand,
                 const Argb& eraserColor, const TextSettings& textSettings,
                 const StampSettings& stampSettings) noexcept
    : line(pen, brush),
      polyline(pen, brush),
      pencil(pen, brush),
      curve(pen, brush),
      closedCurve(pen, brush),
      arc(pen, brush),
      spray(pen, brush, freehand),
      ellipse(pen, brush),
      pie(pen, brush),
      polygon(pen, brush),
      rectangle(pen, brush),
      brushStroke(pen, brush, freehand),
      bezier(pen, brush),
      text(pen, brush, textSettings),
      eraser(pen, brush, freehand, eraserColor),
      imageStamp(pen, brush, stampSettings),
      crop(pen, brush),
      selection(pen, brush),
      redEye(pen, brush),
      trackPoint(pen, brush) {}

PaintTool* ToolSet::ofMode(int mode) noexcept {
    switch (mode) {
        case PaintMode::Line:
            return &line;
        case PaintMode::Polyline:
            return &polyline;
        case PaintMode::Pencil:
            return &pencil;
        case PaintMode::Curve:
            return &curve;
        case PaintMode::ClosedCurve:
            return &closedCurve;
        case PaintMode::Arc:
            return &arc;
        case PaintMode::Spray:
            return &spray;
        case PaintMode::Ellipse:
            return &ellipse;
        case PaintMode::Pie:
            return &pie;
        case PaintMode::Polygon:
            return &polygon;
        case PaintMode::Rectangle:
            return &rectangle;
        case PaintMode::Brush:
            return &brushStroke;
        case PaintMode::Bezier:
            return &bezier;
        case PaintMode::Text:
            return &text;
        case PaintMode::Eraser:
            return &eraser;
        case PaintMode::ImageStamp:
            return &imageStamp;
        case PaintMode::Crop:
            return &crop;
        case PaintMode::Selection:
            return &selection;
        case PaintMode::RedEye:
            return &redEye;
        case PaintMode::TrackPoint:
            return &trackPoint;
        default:
            return nullptr;
    }
}

StrokeTool* ToolSet::strokeOfMode(int mode) noexcept {
    if (mode == PaintMode::Brush) return &brushStroke;
    return mode == PaintMode::Eraser ? &eraser : nullptr;
}

void ToolSet::resetAll() noexcept {
    for (int mode = 1; mode < kModeCount; ++mode) {
        PaintTool* tool = ofMode(mode);
        if (tool != nullptr && mode != PaintMode::Spray) tool->Reset();
    }
}

void ToolSet::setClientSize(IntSize client) noexcept {
    for (int mode = 1; mode < kModeCount; ++mode) {
        PaintTool* tool = ofMode(mode);
        if (tool != nullptr && mode != PaintMode::Spray) {
            tool->bounds = {0, 0, client.width, client.height};
        }
    }
}

}  // namespace orvane
