#pragma once

namespace orvane {

class ImageDocument;

/// How fast brightness rises in one direction, by Sobel's 3 x 3 kernels, for R, G and B: a fall gives 0,
/// steep rises 255. type: 0 rising to the right, 1 to the left, 2 downward, anything else upward. Pixels
/// beyond an edge repeat the edge pixel; alpha becomes 255. One history step; an empty document, or one that
/// finds no memory for the step, stays as it is.
void sobel(ImageDocument& document, int type) noexcept;

}  // namespace orvane
