#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

namespace orvane {

/// Draws the outline around a shown image, 2 pixels outside it. The line is 2 pixels wide and runs through
/// pixel centres: it covers the pixels of its path fully and those on both sides by half. Nothing is drawn
/// unless the outline's rectangle lies wholly inside a view of this size. The pixels of the image are not
/// touched.
void drawImageFrame(MutablePixelView target, IntRect image, IntSize view, Argb colour) noexcept;

}  // namespace orvane
