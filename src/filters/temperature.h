#pragma once

namespace orvane {

class ImageDocument;

/// Warms the image (more red, less blue) or cools it: R becomes clamp(trunc(R (1 + t))) and B
/// clamp(trunc(B (1 - t))) with t = percent x 0.01; G stays, alpha becomes 255.
///
/// percent: -100 (no red, blue doubled) to 100 (red doubled, no blue); others are refused: nothing happens.
/// Otherwise one history step, even when nothing changes; an empty document, or one that finds no memory for
/// the step, stays as it is.
void temperature(ImageDocument& document, int percent) noexcept;

}  // namespace orvane
