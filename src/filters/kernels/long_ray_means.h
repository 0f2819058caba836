#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

namespace orvane {

/// rayMeans for pictures that are far longer than wide, or wider than long. There most rays are long and lie
/// all but on each other, so a ray is taken as the straight pieces of which it has no more than the shorter
/// side has pixels: sums along the longer side tell those of a piece, and pixels that earlier rays have
/// passed are skipped together.
///
/// Arguments and result: see rayMeans. Cost: a few operations per pixel, whatever the shape; for usual shapes
/// rayMeans is quicker. Memory: 16 bytes per pixel. Throws std::bad_alloc.
void longRayMeans(PixelView source, MutablePixelView target, IntPoint centre, int strength);

}  // namespace orvane
