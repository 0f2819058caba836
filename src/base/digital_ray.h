#pragma once

#include <orvane/geometry.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace orvane {

/// A straight walk over pixels from a start to an end: the pixels nearest to the line between them, one for
/// every step along the longer axis. Point 0 is the start, point `steps` the end.
///
/// Where the line passes in the middle between two pixels, the walk prefers, of the two directions that it
/// can take, the one that comes first clockwise from straight up.
struct DigitalRay {
    DigitalRay(IntPoint start, IntPoint end) {
        const int dx = end.x - start.x, dy = end.y - start.y;
        steps = std::max(std::abs(dx), std::abs(dy));
        sidesteps = std::min(std::abs(dx), std::abs(dy));
        alongX = std::abs(dx) >= std::abs(dy);
        const bool right = dx > 0, down = dy > 0;
        stepX = dx == 0 ? 0 : right ? 1 : -1;
        stepY = dy == 0 ? 0 : down ? 1 : -1;
        const bool diagonalFirst = alongX ? right != down : right && down;
        // A quarter of a part to the preferred side of the middle settles the ties, and leaves room for
        // rounding as long as there are fewer than 2^24 steps.
        const double part = 0.25 / std::max(steps, 1);
        slope = double(sidesteps) / std::max(steps, 1);
        middle = diagonalFirst ? 0.5 + part : 0.5 - part;
    }

    /// How far point j is from the start along the shorter axis.
    [[nodiscard]] int sideOf(int j) const { return int(j * slope + middle); }

    /// The squared distance of point j from the end.
    [[nodiscard]] double squaredDistance(int j) const {
        const double along = steps - j, aside = sidesteps - sideOf(j);
        return along * along + aside * aside;
    }

    int steps, sidesteps;
    bool alongX;
    int stepX, stepY;  ///< signs
    double slope, middle;
};

}  // namespace orvane
