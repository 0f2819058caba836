#pragma once

#include <cstdint>
#include <span>

namespace orvane {

class ImageDocument;

/// Convolves with the caller's 3 x 3 or 5 x 5 kernel. For R, G and B the weighted sum of the window is
/// divided by the sum of the weights, unless that is 0, truncated toward zero and clamped; sums wrap at 32
/// bits. Pixels beyond an edge repeat the edge pixel; alpha becomes 255. weights: 9 or 25, column by column
/// from the left, each from the top; any other count is refused. One history step; an empty document, or one
/// that finds no memory for the step, stays as it is.
void userEffect(ImageDocument& document, std::span<const std::int32_t> weights) noexcept;

}  // namespace orvane
