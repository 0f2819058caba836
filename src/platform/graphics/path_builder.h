#pragma once

#include <orvane/geometry.h>

#include <span>

#include "platform/graphics/curves.h"
#include "platform/graphics/path.h"

namespace orvane {

/// Makes paths of the shapes that are given in whole numbers. All functions throw std::bad_alloc.
class PathBuilder {
 public:
    /// shift: added to every coordinate: a half for pens, which run through pixel centres, nothing for areas.
    /// visible: where curves have to be exact.
    PathBuilder(double shift, const PlaneBox& visible) : shift_(shift), visible_(visible) {}

    [[nodiscard]] Path polyline(std::span<const IntPoint> points, PathEnds ends) const;
    /// A cardinal spline of tension 0.5 through all points.
    [[nodiscard]] Path spline(std::span<const IntPoint> points, PathEnds ends) const;
    /// One start point, then three points for each segment; excess points are ignored.
    [[nodiscard]] Path beziers(std::span<const IntPoint> points) const;

    /// Boxes are not empty. Paths run clockwise, the rectangle's from its top-left corner.
    [[nodiscard]] Path rectangle(IntRect box) const;
    /// Angles as for addArc, in degrees and finite.
    [[nodiscard]] Path arc(IntRect box, double start, double sweep) const;
    /// The centre, then the arc; closed.
    [[nodiscard]] Path pie(IntRect box, double start, double sweep) const;

 private:
    [[nodiscard]] PlanePoint placed(IntPoint p) const { return {p.x + shift_, p.y + shift_}; }
    [[nodiscard]] PlaneEllipse ellipseIn(IntRect box) const;

    double shift_;
    PlaneBox visible_;
};

}  // namespace orvane
