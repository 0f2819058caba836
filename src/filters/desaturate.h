#pragma once

namespace orvane {

class ImageDocument;

/// Turns the image to grey: all channels become the luma trunc(0.2125 R + 0.7154 G + 0.0721 B), alpha becomes
/// 255. One history step, even when nothing changes; an empty document, or one that finds no memory for the
/// step, stays as it is.
void desaturate(ImageDocument& document) noexcept;

}  // namespace orvane
