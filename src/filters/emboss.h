#pragma once

namespace orvane {

class ImageDocument;

/// A relief: half the difference between every pixel and one at `distance`, about a middle grey,
/// (p - q + 255) / 2 for R, G and B. Pixels beyond an edge repeat the edge pixel; alpha becomes 255.
///
///     7 0 1
///     6 . 2    where the other pixel lies, by direction; any other direction is 7
///     5 4 3
///
/// distance: -10..10 pixels, below 0 the opposite way; 0 gives plain grey 127. Any other distance is refused.
/// One history step; an empty document, or one that finds no memory for the step, stays as it is.
void emboss(ImageDocument& document, int distance, int direction) noexcept;

}  // namespace orvane
