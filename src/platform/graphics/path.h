#pragma once

#include <orvane/geometry.h>

#include <span>
#include <vector>

#include "platform/graphics/plane.h"

/// Shapes as chains of straight lines that keep within a two-hundredth of a pixel of the curve.
///
/// Only what can be seen is followed closely: curves outside the visible box are walked in few long steps, so
/// that a curve of any size costs no more than its visible part. All functions throw std::bad_alloc.
namespace orvane {

struct PathPoint {
    PlanePoint position;
    bool corner = true;  ///< false inside a curve, where an outline is rounded, not mitred
};

/// One chain of points; no two neighbours coincide. A closed one returns from its last point to its first.
struct Path {
    std::vector<PathPoint> points;
    bool closed = false;
};

/// An ellipse by its centre and radii, both above 0.
struct PlaneEllipse {
    PlanePoint centre;
    double radiusX = 0, radiusY = 0;
};

enum class PathEnds { Open, Closed };

/// Builds paths. Every whole-numbered point is shifted by `shift` in both directions: by a half for pens,
/// which run through pixel centres, by nothing for areas.
class PathBuilder {
 public:
    PathBuilder(double shift, const PlaneBox& visible) : shift_(shift), visible_(visible) {}

    [[nodiscard]] Path polyline(std::span<const IntPoint> points, PathEnds ends) const;
    /// A cardinal spline of tension 0.5 through all points.
    [[nodiscard]] Path spline(std::span<const IntPoint> points, PathEnds ends) const;
    /// One start point, then three points for each segment; excess points are ignored.
    [[nodiscard]] Path beziers(std::span<const IntPoint> points) const;
    [[nodiscard]] Path rectangle(IntRect box) const;
    /// The ellipse in the box, from the positive x axis on, clockwise.
    [[nodiscard]] Path ellipse(IntRect box) const;
    /// Angles are degrees and finite, clockwise, between the positive x axis and the ray through the point; a
    /// sweep of 360 or more, either way, is the whole ellipse.
    [[nodiscard]] Path arc(IntRect box, double start, double sweep) const;
    /// The arc and its centre, closed.
    [[nodiscard]] Path pie(IntRect box, double start, double sweep) const;

 private:
    [[nodiscard]] PlanePoint placed(IntPoint p) const { return {p.x + shift_, p.y + shift_}; }
    [[nodiscard]] PlaneEllipse placed(IntRect box) const;
    void addCubic(Path& path, const PlanePoint (&controls)[4], int depth) const;
    void addArc(Path& path, const PlaneEllipse& ellipse, double from, double to) const;
    void addArcInQuadrant(Path& path, const PlaneEllipse& ellipse, double from, double to, int depth) const;

    double shift_;
    PlaneBox visible_;
};

}  // namespace orvane
