#pragma once

#include <orvane/pixels.h>

#include "base/random_stream.h"

namespace orvane {

/// Draws over each pixel (see sourceOver) the source's word at a random offset; offsets beyond an edge end at
/// the edge. Of each pixel the first draw r gives the horizontal offset trunc(r s) - reach with
/// s = (2 reach + 1) / 32767, the second one the vertical offset.
///
/// source, target: equal sizes, not overlapping. reach: from 1, however large.
/// stream: the draws are those of a walk down the first column, then down the second and so on, and it is
/// left after the last one. Scratch memory: two rows. May throw std::bad_alloc, leaving the stream as it was.
void displacePixels(PixelView source, MutablePixelView target, int reach, RandomStream& stream);

}  // namespace orvane
