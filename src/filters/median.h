#pragma once

namespace orvane {

class ImageDocument;

/// The middle value of the square of 2 * radius + 1 pixels around every pixel, each colour channel for
/// itself; beyond the picture its edge pixels go on. Specks go, edges stay. The picture becomes opaque.
///
/// radius: pixels, from 0, which keeps the colours; below 0 nothing happens.
/// Cost per pixel grows up to radius 4 and is about constant from there on.
void median(ImageDocument& document, int radius) noexcept;

}  // namespace orvane
