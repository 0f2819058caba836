#pragma once

#include <orvane/pixels.h>

#include <cstdint>
#include <span>

namespace orvane {

/// Any 3 x 3 or 5 x 5 kernel: per colour channel the weighted sum of the window, divided by the sum of the
/// weights unless that is 0, truncated toward zero and clamped to 0..255; alpha 255. Sums, that of the
/// weights too, wrap at 32 bits. Pixels beyond an edge repeat the edge pixel. source, target: equal sizes,
/// not overlapping. weights: 9 or 25, column by column from the left, each from the top.
void convolveSmall(PixelView source, MutablePixelView target, std::span<const std::int32_t> weights) noexcept;

}  // namespace orvane
