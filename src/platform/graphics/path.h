#pragma once

#include "platform/graphics/plane.h"
#include "platform/graphics/scratch.h"

namespace orvane {

/// A direction has length 1, or 0 where it is that of the straight line to the neighbouring point.
struct PathPoint {
    PlanePoint position;
    PlanePoint arriving, leaving;  ///< of the path before and after the point

    /// On a curve that goes on without a corner.
    [[nodiscard]] bool isSmooth() const noexcept {
        return dot(arriving, leaving) > 0.5 && cross(arriving, leaving) < 1e-6 &&
               cross(arriving, leaving) > -1e-6;
    }
};

enum class PathEnds { Open, Closed };

/// A chain of straight lines. No two neighbours coincide; a closed one returns from its last point to its
/// first.
struct Path {
    ScratchVector<PathPoint> points;
    bool closed = false;

    /// Goes straight to a point; nothing when it is there already. Throws std::bad_alloc.
    void lineTo(PlanePoint to);
    /// The same for a point inside a curve, which has a direction there.
    void curveTo(PlanePoint to, PlanePoint direction);
    /// Call last. A closed path whose last point repeats its first then ends one point earlier.
    void finish(PathEnds ends) noexcept;
};

}  // namespace orvane
