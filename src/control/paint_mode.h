#pragma once

namespace orvane {

/// The values of `PaintStatus`, which hosts store and send. Values outside 0..21 select no tool.
namespace PaintMode {
enum : int {
    None = 0,
    Line = 1,
    Polyline = 2,
    Pencil = 3,
    Curve = 4,
    ClosedCurve = 5,
    Arc = 6,
    Spray = 7,
    Ellipse = 8,
    Pie = 9,
    Polygon = 10,
    Rectangle = 11,
    Brush = 12,
    Bezier = 13,
    Text = 14,
    Eraser = 15,
    ImageStamp = 16,
    Crop = 17,
    Selection = 18,
    RedEye = 19,
    Rotation = 20,
    TrackPoint = 21,
};
}  // namespace PaintMode

}  // namespace orvane
