#pragma once

#include <orvane/pixels.h>

#include <cstdint>
#include <span>

namespace orvane {

/// Convolves with a square kernel whose weights depend on the ring alone, that is on max(|dx|, |dy|):
///
///     2 2 2 2 2
///     2 1 1 1 2
///     2 1 0 1 2     which ring a weight belongs to, for three of them
///     2 1 1 1 2
///     2 2 2 2 2
///
/// Per colour channel the weighted sum of the window is divided by the sum of the weights unless that is 0,
/// truncated toward zero and clamped to 0..255; alpha 255. Sums, that of the weights too, wrap at 32 bits.
/// Pixels beyond an edge repeat the edge pixel.
///
/// source, target: equal sizes, not overlapping. weights: from the centre outward, at least one. Cost per
/// pixel and scratch memory (a row of column sums each) grow with the number of rings whose weight differs
/// from the next ring's, not with the radius. May throw std::bad_alloc.
void convolveRings(PixelView source, MutablePixelView target, std::span<const std::int32_t> weights);

}  // namespace orvane
