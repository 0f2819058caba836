#pragma once

namespace orvane {

class ImageDocument;

/// Stretches the picture to new sides, each its old length times the factor, cut down to whole pixels, as one
/// history step; the view is centred anew. Enlarging interpolates, shrinking averages, alpha is carried over.
///
/// Nothing happens when a factor is not above 0, when a side would be below 1 pixel or the picture larger
/// than pictures can be, on an empty document, or without memory.
void scaleImage(ImageDocument& document, double scaleX, double scaleY) noexcept;

}  // namespace orvane
