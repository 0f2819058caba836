#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

namespace orvane {

/// Half the difference between each pixel and the one `offset` away from it, about a middle grey:
/// (p - q + 255) / 2 for R, G and B; alpha 255. Pixels beyond an edge repeat the edge pixel.
/// source, target: equal sizes, not overlapping. offset: up to 10 pixels in each direction. Memory bound.
void reliefPixels(PixelView source, MutablePixelView target, IntPoint offset) noexcept;

}  // namespace orvane
