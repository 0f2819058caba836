#pragma once

namespace orvane {

class ImageDocument;

/// Blurs with weights that fall off from the centre: at (dx, dy) the weight is
/// (radius^2 x fallOff + 1) / (d^2 x fallOff + 1), truncated, with d = max(|dx|, |dy|) up to `radius`. For R,
/// G and B the weighted sum is divided by the sum of the weights, truncated; sums wrap at 32 bits, and so do
/// the weights themselves. Pixels beyond an edge repeat the edge pixel; alpha becomes 255. radius, fallOff:
/// from 1; below is refused. Beyond kMaxKernelRadius there is no memory for the kernel. The cost grows with
/// the number of different weights, about 2 x radius^(2/3) of them. One history step; an empty document, or
/// one that finds no memory for the step, stays as it is.
void gaussianBlur(ImageDocument& document, int radius, int fallOff) noexcept;

}  // namespace orvane
