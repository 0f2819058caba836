#pragma once

#include <vector>

#include <orvane/pixels.h>

namespace orvane {

/// Chooses up to `maximumColours` (1..256) opaque colours that stand for the picture's opaque ones with
/// little error, weighed by kColourWeights. Pixels below `leastAlpha` do not count. The same picture gives
/// the same colours. Cost: one walk over the pixels and an amount bounded by the number of distinct colours.
/// May throw std::bad_alloc.
[[nodiscard]] std::vector<Argb> buildPalette(PixelView picture, int maximumColours, unsigned leastAlpha);

}  // namespace orvane
