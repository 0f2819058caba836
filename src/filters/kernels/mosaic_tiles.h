#pragma once

#include <orvane/pixels.h>

namespace orvane {

/// What a tile is filled with.
enum class TileColour {
    Centre,  ///< the word of the source pixel at its centre
    Mean,    ///< (sum of its pixels + the centre once more) / (their number + 1), rounded down, opaque
};

/// Draws tiles of 2 * radius + 1 pixels square over the source, from the top left corner on. A tile is drawn
/// when its centre lies in the picture; its part beyond an edge counts as repeating the edge pixel in the
/// mean. Pixels without a tile keep the source's word.
///
/// source, target: equal sizes, not overlapping. radius: from 1. Sums wrap at 32 bits. Each source pixel is
/// read at most once, by Centre only those that matter. Scratch memory: three rows. May throw std::bad_alloc.
void mosaicTiles(PixelView source, MutablePixelView target, TileColour colour, int radius);

}  // namespace orvane
