#pragma once

#include <orvane/pixels.h>

namespace orvane {

/// The median of windows of any radius from 0, as medianOfWindow has it, in constant time per pixel.
void medianByHistograms(PixelView source, MutablePixelView target, int radius);

}  // namespace orvane
