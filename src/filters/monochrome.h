#pragma once

#include <orvane/pixels.h>

namespace orvane {

class ImageDocument;

/// Reduces the image to two colours by the grey level (R + G + B) / 3: pixels above `level` become `above`,
/// the others, those at `level` included, `notAbove`.
///
/// level: any number; below 0 all pixels become `above`, from 255 on `notAbove`. above, notAbove: opaque
/// colours 0xFFRRGGBB. One history step, even when nothing changes; an empty document, or one that finds no
/// memory for the step, stays as it is.
void monochrome(ImageDocument& document, int level, Argb above, Argb notAbove) noexcept;

}  // namespace orvane
