#pragma once

#include <cstdint>
#include <vector>

namespace orvane {

/// A circle about a centre as a walk over pixels, clockwise on the screen from the point straight left of the
/// centre, which comes last: of the neighbours that lead on, it takes the one whose distance is the nearest.
/// The walk looks the same after every quarter turn, so the quarter from the left to the top stands for all.
///
/// Two rings share no pixel, and some pixels are on none. Radii are from 2 up.
class DigitalRing {
 public:
    /// Traces a ring; the memory of the one before it is used again. Cost: the points of an eighth.
    void trace(int radius) {
        const std::int64_t squared = std::int64_t(radius) * radius;
        across.clear();
        up.clear();
        std::int64_t a = radius, t = 1;
        for (;; ++t) {
            while (a >= t && !reaches(a, t, squared)) --a;
            if (a < t) break;
            across.push_back(std::int32_t(a));
            up.push_back(std::int32_t(t));
        }
        // The other eighth is the mirror image, with the point on the diagonal, if any, not repeated.
        std::size_t i = across.size();
        if (i > 0 && across[i - 1] == up[i - 1]) --i;
        while (i-- > 0) {
            across.push_back(up[i]);
            up.push_back(across[i]);
        }
        across.push_back(0);
        up.push_back(radius);
    }

    /// The points of the first quarter: distances to the left of the centre and above it.
    std::vector<std::int32_t> across, up;

 private:
    // Whether a pixel is no farther out than the next one inward is too far in.
    static bool reaches(std::int64_t a, std::int64_t t, std::int64_t squared) {
        return t * t + a * a - a < squared;
    }
};

}  // namespace orvane
