#pragma once

#include "platform/graphics/path.h"
#include "platform/graphics/plane.h"

/// Curves as chains of chords that keep within a hundred-and-fiftieth of a pixel of them, mostly half as
/// near.
///
/// Only what can be seen is followed so closely: outside the visible box a long curve is walked in few steps,
/// so that one of any size costs no more than its visible part. All functions throw std::bad_alloc.
namespace orvane {

/// A cubic Bezier segment from the end of the path, which is controls[0].
void addCubic(Path& path, const PlanePoint (&controls)[4], const PlaneBox& visible);

/// Radii above 0.
struct PlaneEllipse {
    PlanePoint centre;
    double radiusX = 0, radiusY = 0;
};

/// Part of an ellipse in quarter turns of its parameter, clockwise on screen from the positive x axis; whole
/// numbers are the points on the axes.
struct ArcRange {
    double from = 0, to = 0;
};

/// The arc between two rays from the centre, `start` and `start + sweep` in degrees. A sweep of 360 or more,
/// either way, is once round.
[[nodiscard]] ArcRange arcBetweenRays(const PlaneEllipse& ellipse, double start, double sweep) noexcept;

/// Goes straight to the arc's start, then along the arc. One that goes round ends exactly where it starts.
void addArc(Path& path, const PlaneEllipse& ellipse, ArcRange range, const PlaneBox& visible);

}  // namespace orvane
