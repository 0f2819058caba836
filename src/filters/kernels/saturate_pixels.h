#pragma once

#include <orvane/pixels.h>

#include <cstddef>

namespace orvane {

/// Moves every colour channel away from the pixel's luma L (see desaturatePixels), or towards it:
/// clamp(trunc(channel s + trunc(L (1 - s)))) with s = percent x 0.01, in double precision, for any percent.
/// Every target pixel gets alpha 255. source, target: `count` words each, not overlapping.
void saturatePixels(const Argb* source, Argb* target, std::size_t count, int percent) noexcept;

}  // namespace orvane
