#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

namespace orvane {

/// Draws the outline around a shown image: 2 pixels outside it, 2 pixels wide, exactly covered. Nothing is
/// drawn unless the outline's rectangle lies wholly inside a view of this size. The pixels of the image are
/// not touched.
///
///     image         # # # #
///     coverage  h F h         h F h    F full, h half: the line runs through the centres of the F pixels,
///     which
///                                      are as far apart as the outline is wide
void drawImageFrame(MutablePixelView target, IntRect image, IntSize view, Argb colour) noexcept;

}  // namespace orvane
