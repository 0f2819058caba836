#pragma once

namespace orvane {

class ImageDocument;

/// Adds a number to each colour channel, held within 0..255; alpha becomes 255. Any number is accepted:
/// beyond -255..255 the channel is 0 or 255 everywhere. One history step, even when nothing changes; an empty
/// document, or one that finds no memory for the step, stays as it is.
void brightness(ImageDocument& document, int red, int green, int blue) noexcept;

}  // namespace orvane
