#pragma once

#include <cstdint>

namespace orvane {

class ImageDocument;

/// The mean of the square of 2 * radius + 1 pixels around every pixel, in which the pixel itself weighs
/// `centreWeight` and all others 1: the weighted sum is divided by the sum of the weights, unless that is 0,
/// truncated toward zero and clamped, for R, G and B; sums wrap at 32 bits. Weight 0 leaves the pixel out;
/// radius 1 with weight -8 gives an edge image. Pixels beyond an edge repeat the edge pixel; alpha becomes
/// 255.
/// radius: from 0; -8 to -1 gives opaque black, anything below is refused. Beyond kMaxKernelRadius there is
/// no memory for the kernel. The cost does not grow with the radius. One history step; an empty document, or
/// one that finds no memory for the step, stays as it is.
void average(ImageDocument& document, std::int32_t centreWeight, int radius) noexcept;

}  // namespace orvane
