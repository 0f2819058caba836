#pragma once

#include <orvane/geometry.h>

#include "base/digital_ray.h"

namespace orvane {

/// The way of a stamp from one pixel to another: a chain of neighbouring pixels, at each step the neighbour
/// that lies nearest to the line among those that come nearer to the end. Point 0 is the start, point steps()
/// the end; any point is found at once. Both ends within +-2^22.
class StampWalk {
 public:
    StampWalk(IntPoint from, IntPoint to) noexcept : from_(from), ray_(from, to) {}

    [[nodiscard]] int steps() const noexcept { return ray_.steps; }
    [[nodiscard]] IntPoint at(int step) const noexcept {
        const int side = ray_.sideOf(step);
        return ray_.alongX ? IntPoint{from_.x + ray_.stepX * step, from_.y + ray_.stepY * side}
                           : IntPoint{from_.x + ray_.stepX * side, from_.y + ray_.stepY * step};
    }

 private:
    IntPoint from_;
    DigitalRay ray_;
};

}  // namespace orvane
