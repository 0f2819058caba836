#pragma once

#include <orvane/pixels.h>

namespace orvane {

/// The box mean (see centredBoxPixels, all weights 1) where the window is flat: the smallest of its three
/// channel ranges (maximum less minimum) is at most `level`. All other target pixels get the source's word.
///
/// source, target: equal sizes, not overlapping. radius: from 0. Cost per pixel grows with the logarithm of
/// the radius. Scratch memory: about two windows of rows. May throw std::bad_alloc.
void blurFlatPixels(PixelView source, MutablePixelView target, int radius, int level);

}  // namespace orvane
