#pragma once

#include <orvane/pixels.h>

namespace orvane {

/// The median of each colour channel over the square window around every pixel.
///
/// source, target: equal sizes, memory not shared.
/// radius: from 0, without a limit; the window is 2 * radius + 1 pixels square, and pixels beyond an edge
/// repeat the edge pixel, each time counted anew.
/// Reads R, G and B; writes every target pixel with alpha 255. Cost per pixel grows up to radius 4 and is
/// about constant from there on. May throw std::bad_alloc.
void medianOfWindow(PixelView source, MutablePixelView target, int radius);

}  // namespace orvane
