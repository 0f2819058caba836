#pragma once

#include <orvane/pixels.h>

namespace orvane {

/// The lines along which a moving camera smears. A sample number i runs over the window of a mean.
enum class MotionLine {
    Horizontal,  ///< (x + i, y)
    Falling,     ///< (x + i, y + i)
    Vertical,    ///< (x, y + i)
    Rising,      ///< (x - i, y + i)
};

/// Replaces each pixel by the mean of the 2 * radius + 1 pixels of the line through it, channel by channel,
/// rounded down. Coordinates beyond an edge are taken back to it, each by itself. Reads R, G and B; writes
/// every target pixel, opaque.
///
/// source, target: equal sizes, memory not shared. radius: at least 1. Cost per pixel does not grow with the
/// radius, but steps up where sums leave 16 bits (radius 129). Memory: a few rows. Throws std::bad_alloc.
void lineMeans(PixelView source, MutablePixelView target, int radius, MotionLine line);

}  // namespace orvane
