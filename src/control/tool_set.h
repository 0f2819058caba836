#pragma once

#include "control/paint_mode.h"
#include "tools/arc_tool.h"
#include "tools/bezier_tool.h"
#include "tools/brush_stroke_tool.h"
#include "tools/closed_curve_tool.h"
#include "tools/crop_tool.h"
#include "tools/curve_tool.h"
#include "tools/ellipse_tool.h"
#include "tools/eraser_tool.h"
#include "tools/image_stamp_tool.h"
#include "tools/line_tool.h"
#include "tools/pencil_tool.h"
#include "tools/pie_tool.h"
#include "tools/polygon_tool.h"
#include "tools/polyline_tool.h"
#include "tools/rectangle_tool.h"
#include "tools/red_eye_tool.h"
#include "tools/selection_tool.h"
#include "tools/spray_tool.h"
#include "tools/text_settings.h"
#include "tools/text_tool.h"
#include "tools/tool_settings.h"
#include "tools/track_point_tool.h"

namespace orvane {

/// One tool object for each paint mode that has one. They live as long as the control and share its pen,
/// brush and settings.
class ToolSet {
 public:
    ToolSet(const PenSettings& pen, BrushSettings& brush, const FreehandSettings& freehand,
            const Argb& eraserColor, const TextSettings& textSettings,
            const StampSettings& stampSettings) noexcept;

    /// The mode's tool; null for modes without one.
    [[nodiscard]] PaintTool* ofMode(int mode) noexcept;
    /// The tool of a mode that paints with a nib; null for the others.
    [[nodiscard]] StrokeTool* strokeOfMode(int mode) noexcept;
    /// Drops every pending gesture but the spray's, which ends by itself with the button.
    void resetAll() noexcept;
    /// A resize of the window: where the tools accept points. The spray accepts them anywhere.
    void setClientSize(IntSize client) noexcept;

    LineTool line;
    PolylineTool polyline;
    PencilTool pencil;
    CurveTool curve;
    ClosedCurveTool closedCurve;
    ArcTool arc;
    SprayTool spray;
    EllipseTool ellipse;
    PieTool pie;
    PolygonTool polygon;
    RectangleTool rectangle;
    BrushStrokeTool brushStroke;
    BezierTool bezier;
    TextTool text;
    EraserTool eraser;
    ImageStampTool imageStamp;
    CropTool crop;
    SelectionTool selection;
    RedEyeTool redEye;
    TrackPointTool trackPoint;
};

}  // namespace orvane
