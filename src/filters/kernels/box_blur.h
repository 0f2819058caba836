#pragma once

#include <orvane/pixels.h>

#include <cstdint>

namespace orvane {

/// Box means of the whole picture. Pixels beyond an edge repeat the edge pixel. source, target: equal sizes,
/// not overlapping; R, G and B are read, every target pixel is written with alpha 255. Cost per pixel does
/// not grow with the radius. Scratch memory: a few rows. May throw std::bad_alloc.

/// The mean of the window of 2 * radius + 1 pixels square, rounded down. radius: from 0.
void boxBlurPixels(PixelView source, MutablePixelView target, int radius);

/// The same with a centre that weighs `centreWeight` instead of 1: the weighted sum of the window, divided by
/// the sum of the weights unless that is 0, truncated toward zero and clamped to 0..255. Sums, that of the
/// weights too, wrap at 32 bits. radius: from 0.
void centredBoxPixels(PixelView source, MutablePixelView target, std::int32_t centreWeight, int radius);

}  // namespace orvane
