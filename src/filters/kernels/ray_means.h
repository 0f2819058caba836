#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

namespace orvane {

/// Replaces each pixel by a mean along the ray from the border through it to a centre, channel by channel,
/// rounded down. The rays are digital lines (see DigitalRay) that start at the border pixels, clockwise from
/// the upper left corner for the upper and the right border, then the lower border from the left and the left
/// border from above; where rays share a pixel, it belongs to the first of them. A window reaches k pixels to
/// both sides, k = trunc(d2 / D2 * strength) with d2 the squared distance to the centre and D2 that of the
/// farthest corner, and repeats the ends of the ray beyond them. Black where k < 0.
///
/// source, target: equal sizes of at least 2 x 2, memory not shared. centre: inside. strength: any. Every
/// pixel is on some ray, so every target pixel is written, opaque. Cost per pixel grows neither with the
/// strength nor with the size. Memory: a quarter of a picture, four pictures for very long ones. Throws
/// std::bad_alloc.
void rayMeans(PixelView source, MutablePixelView target, IntPoint centre, int strength);

}  // namespace orvane
