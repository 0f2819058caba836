#pragma once

namespace orvane {

class ImageDocument;

/// The brightest value of the square of 2 * radius + 1 pixels around every pixel, each colour channel for
/// itself; beyond the picture its edge pixels go on. The picture becomes opaque.
///
/// radius: pixels, from 0, which keeps the colours; below 0 nothing happens.
/// Cost per pixel grows with the logarithm of the radius.
void maximal(ImageDocument& document, int radius) noexcept;

}  // namespace orvane
