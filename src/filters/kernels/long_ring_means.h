#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

namespace orvane {

/// Whether a picture is so much longer than wide, or wider than long, that rings are mostly outside.
[[nodiscard]] bool isLongForRings(PixelView source);

/// The radius from which rings leave the picture on all but two short pieces.
[[nodiscard]] int firstLongRing(PixelView source);

/// ringMeans for the rings of these radii in such pictures. Points beyond a long side have the colours of its
/// pixels, so that where a ring runs along the side, sums along the side tell those of the ring; where it
/// runs away from it, each of the pixels is met as often as a root tells.
///
/// firstRadius: from firstLongRing. Arguments and result: see ringMeans. Cost: per ring, a few operations for
/// each of its pixels and, if its windows reach so far, for each of 0.3 * radius others; a picture of
/// 2 x 100000 pixels has 100000 such rings. Memory: 64 bytes per pixel of the longer side. Throws
/// std::bad_alloc.
void longRingMeans(PixelView source, MutablePixelView target, IntPoint centre, double halfAngle,
                   int firstRadius, int lastRadius);

}  // namespace orvane
