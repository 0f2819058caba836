#include "platform/graphics/path_builder.h"

#include <algorithm>
#include <cmath>

namespace orvane {

Path PathBuilder::polyline(std::span<const IntPoint> points, PathEnds ends) const {
    Path path;
    path.points.reserve(points.size());
    for (IntPoint p : points) path.lineTo(placed(p));
    path.finish(ends);
    return path;
}

Path PathBuilder::spline(std::span<const IntPoint> points, PathEnds ends) const {
    Path path;
    const std::size_t count = points.size();
    if (count == 0) return path;
    const bool closed = ends == PathEnds::Closed;
    // Beyond its ends an open spline repeats its first and its last point.
    const auto at = [&](std::size_t i) {
        return placed(points[closed ? i % count : std::min(i, count - 1)]);
    };
    path.lineTo(at(0));
    for (std::size_t i = 0; i + (closed ? 0 : 1) < count; ++i) {
        const PlanePoint before = i > 0 ? at(i - 1) : at(closed ? count - 1 : 0);
        const PlanePoint from = at(i), to = at(i + 1), after = at(i + 2);
        // Through a point the curve runs parallel to the line between its neighbours.
        addCubic(path, {from, from + (to - before) * (1.0 / 6), to - (after - from) * (1.0 / 6), to},
                 visible_);
    }
    path.finish(ends);
    return path;
}

Path PathBuilder::beziers(std::span<const IntPoint> points) const {
    Path path;
    if (points.empty()) return path;
    path.lineTo(placed(points[0]));
    for (std::size_t i = 0; i + 3 < points.size(); i += 3) {
        addCubic(path,
                 {placed(points[i]), placed(points[i + 1]), placed(points[i + 2]), placed(points[i + 3])},
                 visible_);
    }
    return path;
}

Path PathBuilder::rectangle(IntRect box) const {
    const PlanePoint from = placed(IntPoint{box.x, box.y});
    const PlanePoint to = from + PlanePoint{double(box.width), double(box.height)};
    Path path;
    for (PlanePoint corner : {from, {to.x, from.y}, to, {from.x, to.y}}) path.lineTo(corner);
    path.finish(PathEnds::Closed);
    return path;
}

PlaneEllipse PathBuilder::ellipseIn(IntRect box) const {
    const PlanePoint radii{box.width * 0.5, box.height * 0.5};
    return {placed(IntPoint{box.x, box.y}) + radii, radii.x, radii.y};
}

Path PathBuilder::arc(IntRect box, double start, double sweep) const {
    const PlaneEllipse ellipse = ellipseIn(box);
    Path path;
    addArc(path, ellipse, arcBetweenRays(ellipse, start, sweep), visible_);
    path.finish(std::abs(sweep) >= 360 ? PathEnds::Closed : PathEnds::Open);
    return path;
}

Path PathBuilder::pie(IntRect box, double start, double sweep) const {
    const PlaneEllipse ellipse = ellipseIn(box);
    Path path;
    path.lineTo(ellipse.centre);
    addArc(path, ellipse, arcBetweenRays(ellipse, start, sweep), visible_);
    path.finish(PathEnds::Closed);
    return path;
}

}  // namespace orvane
