#pragma once

#include <orvane/geometry.h>

namespace orvane {

class ImageDocument;

/// Cuts the picture down to a rectangle in image pixels, as one history step; the view is centred anew. What
/// lies outside of the picture is cut off the rectangle first. Nothing happens when less than 4 x 4 pixels
/// are left of it, on an empty document, or without memory.
void cropToRectangle(ImageDocument& document, IntRect rectangle) noexcept;

}  // namespace orvane
