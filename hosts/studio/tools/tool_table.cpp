#include "studio/tools/tool_table.h"

namespace orvane::studio {
namespace {

constexpr unsigned kOutline = ToolOptions::Ink | ToolOptions::Line | ToolOptions::Draw;
constexpr unsigned kShape = kOutline | ToolOptions::Fill;

constexpr Tool kTools[] = {
    {0, "Hand", "orvane-tool-hand-symbolic", 'H', "Drag to move the picture; Ctrl and the wheel zoom",
     ToolGroup::View, ToolOptions::View},
    {18, "Selection", "orvane-tool-selection-symbolic", 'S',
     "Drag a frame to copy or cut; drag its edges to change it", ToolGroup::View, ToolOptions::Selection},
    {17, "Crop", "orvane-tool-crop-symbolic", 'C', "Drag a frame; Enter cuts the picture down to it",
     ToolGroup::View, ToolOptions::Crop},
    {20, "Free rotation", "orvane-tool-rotation-symbolic", 'F',
     "Drag the slider below the picture, then press Apply there", ToolGroup::View, ToolOptions::Rotation},

    {1, "Line", "orvane-tool-line-symbolic", 'L', "Drag a line, then its ends; Enter draws it",
     ToolGroup::Line, kOutline},
    {2, "Polyline", "orvane-tool-polyline-symbolic", 'Y',
     "Click corner by corner; drag one to move it, right-click one to remove it; Enter draws the line",
     ToolGroup::Line, kOutline},
    {4, "Curve", "orvane-tool-curve-symbolic", 'U',
     "Click points for the curve to pass; drag one to move it, right-click one to remove it; Enter draws it",
     ToolGroup::Line, kOutline},
    {13, "Bézier curve", "orvane-tool-bezier-symbolic", 'Z',
     "Click a handle, then a point, for each of three points or more; drag them to bend; Enter draws the "
     "curve",
     ToolGroup::Line, kOutline},

    {11, "Rectangle", "orvane-tool-rectangle-symbolic", 'R',
     "Drag a rectangle, then its handles; Enter draws it", ToolGroup::Shape, kShape},
    {8, "Ellipse", "orvane-tool-ellipse-symbolic", 'E',
     "Drag the box of an ellipse, then its handles; Enter draws it", ToolGroup::Shape, kShape},
    {10, "Polygon", "orvane-tool-polygon-symbolic", 'G',
     "Click corner by corner; drag one to move it, right-click one to remove it; Enter draws the polygon",
     ToolGroup::Shape, kShape},
    {5, "Closed curve", "orvane-tool-closed-curve-symbolic", 'D',
     "Click three points or more; drag one to move it, right-click one to remove it; Enter draws the curve",
     ToolGroup::Shape, kShape},
    {6, "Arc", "orvane-tool-arc-symbolic", 'A',
     "Drag a box; drag the diamonds to set begin and end; Enter draws the arc", ToolGroup::Shape, kOutline},
    {9, "Pie", "orvane-tool-pie-symbolic", 'I',
     "Drag a box; drag the diamonds to set begin and end; Enter draws the pie", ToolGroup::Shape, kShape},

    {3, "Pencil", "orvane-tool-pencil-symbolic", 'P', "Drag to draw", ToolGroup::Freehand,
     ToolOptions::Ink | ToolOptions::Line},
    {12, "Brush", "orvane-tool-brush-symbolic", 'B', "Drag to paint", ToolGroup::Freehand, ToolOptions::Nib},
    {7, "Spray", "orvane-tool-spray-symbolic", 'N',
     "Press to spray; it goes on for as long as you hold the button", ToolGroup::Freehand,
     ToolOptions::Ink | ToolOptions::Spray},
    {15, "Eraser", "orvane-tool-eraser-symbolic", 'X', "Drag to paint the paper's colour over the picture",
     ToolGroup::Freehand, ToolOptions::Eraser},

    {14, "Text", "orvane-tool-text-symbolic", 'T', "Type the text above, drag it into place; Enter draws it",
     ToolGroup::Place, ToolOptions::Text | ToolOptions::Fill | ToolOptions::Draw},
    {16, "Picture stamp", "orvane-tool-stamp-symbolic", 'M',
     "Choose a picture above, drag it into place; Enter draws it", ToolGroup::Place,
     ToolOptions::Stamp | ToolOptions::Draw},
    {19, "Red-eye", "orvane-tool-red-eye-symbolic", 'O', "Drag a frame around one red eye", ToolGroup::Place,
     ToolOptions::None},
    {21, "Track point", "orvane-tool-track-point-symbolic", 'K',
     "Drag the cross to measure where it is in the picture", ToolGroup::Place, ToolOptions::TrackPoint},
};

}  // namespace

std::span<const Tool> tools() { return kTools; }

const Tool* toolOfMode(int mode) {
    for (const Tool& tool : kTools) {
        if (tool.mode == mode) return &tool;
    }
    return nullptr;
}

}  // namespace orvane::studio
