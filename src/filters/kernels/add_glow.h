#pragma once

#include <orvane/pixels.h>

namespace orvane {

/// Which pixels shine, how far, and how strongly.
struct Glow {
    int level = 0, radius = 0, intensity = 0;
    [[nodiscard]] bool isValid() const { return level >= 1 && radius >= 1 && intensity >= 1; }
};

/// Adds the light of the pixels that shine (R, G and B at least `level`) to R, G and B around them: of each
/// GlowFalloff gives the share by distance, and all shares are added up in double precision, the sources' x
/// in the outer and y in the inner order. The whole part of the sum is what is added, up to 255.
///
/// source, target: equal sizes, not overlapping; every target pixel is written with alpha 255.
/// light: valid. Where few pixels shine, the cost is that of their light; where many do and reach up to 30
/// pixels, about a quarter of the circle's area in single precision, and again in double precision for the
/// few sums that lie so near to a whole number that single precision cannot tell. Farther light costs a
/// fraction of a second per million pixels (see addFarGlow), and a radius of thousands of millions up to a
/// second for itself. Scratch memory: up to 14 bytes per pixel and 256 MiB, less for short light. May throw
/// std::bad_alloc.
void addGlow(PixelView source, MutablePixelView target, const Glow& light);

}  // namespace orvane
