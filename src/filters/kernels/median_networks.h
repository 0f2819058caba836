#pragma once

#include <orvane/pixels.h>

namespace orvane {

/// The largest radius for which the median is found by sorting networks.
inline constexpr int kLargestNetworkRadius = 4;

/// The median of windows of radius 1 .. kLargestNetworkRadius, as medianOfWindow has it. Cost per pixel
/// grows with about the power 2.5 of the radius.
void medianByNetworks(PixelView source, MutablePixelView target, int radius);

}  // namespace orvane
