#pragma once

namespace orvane {

class ImageDocument;

/// Makes colours stronger or weaker: every channel c becomes clamp(trunc(c s + trunc(L (1 - s)))) with
/// s = percent x 0.01 and L the luma of `desaturate`; alpha becomes 255.
///
/// percent: 100 leaves the colours as they are, 0 gives grey, more pushes them away from grey; any number is
/// accepted, negative ones turn the colours over. One history step, even when nothing changes; an empty
/// document, or one that finds no memory for the step, stays as it is.
void saturate(ImageDocument& document, int percent) noexcept;

}  // namespace orvane
