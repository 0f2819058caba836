#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

namespace orvane {

/// Replaces each pixel that is on a ring about a centre by the mean of the ring's points up to
/// k = trunc(radius * halfAngle) before and behind it, channel by channel, rounded down; the window goes
/// round the ring as often as it is longer. Points outside the picture have the colour of the nearest pixel.
/// Black where k < 0. The rings are those of DigitalRing, up to the radius that reaches every corner, and for
/// radius 1 the eight neighbours of the pixel to the left of the centre, which come before all others.
///
/// source, target: equal sizes, memory not shared. halfAngle: radians, any. Writes the pixels on rings,
/// opaque, and no other. Cost: a few operations per ring point, whatever the angle. Memory: a few rings.
/// Throws std::bad_alloc.
void ringMeans(PixelView source, MutablePixelView target, IntPoint centre, double halfAngle);

/// Replaces each pixel that is on none of these rings by the mean of the 5 x 5 pixels around it with weights
/// 3 and in the middle 1; pixels beyond an edge repeat the edge. Means are taken before any pixel is
/// replaced, of the target's pixels where there are rings and of the source's elsewhere. Writes every target
/// pixel of no ring, opaque. Memory: a few rows. Throws std::bad_alloc.
void fillRingGaps(PixelView source, MutablePixelView target, IntPoint centre);

}  // namespace orvane
