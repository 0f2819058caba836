#pragma once

namespace orvane {

class ImageDocument;

/// The negative of the image: each colour channel c becomes 255 - c, alpha becomes 255. One history step,
/// even when nothing changes; an empty document, or one that finds no memory for the step, stays as it is.
void invert(ImageDocument& document) noexcept;

}  // namespace orvane
