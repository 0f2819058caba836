#pragma once

namespace orvane {

class ImageDocument;

/// Scales each channel: c becomes min(trunc(c x percent x 0.01), 255); alpha becomes 255.
///
/// redPercent, greenPercent, bluePercent: 0 and above, 100 leaves the channel as it is. A negative one is
/// refused: nothing happens. Otherwise one history step, even when nothing changes; an empty document, or one
/// that finds no memory for the step, stays as it is.
void lightness(ImageDocument& document, int redPercent, int greenPercent, int bluePercent) noexcept;

}  // namespace orvane
