#pragma once

namespace orvane {

class ImageDocument;

/// Spreads the channels around grey 127: c becomes clamp(trunc(c s) + trunc((1 - s) 127)) with
/// s = percent x 0.01; alpha becomes 255.
///
/// percent: 100 leaves the colours as they are, 0 gives grey 127; any number is accepted, negative ones turn
/// the image over. One history step, even when nothing changes; an empty document, or one that finds no
/// memory for the step, stays as it is.
void contrast(ImageDocument& document, int percent) noexcept;

}  // namespace orvane
