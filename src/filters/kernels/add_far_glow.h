#pragma once

#include <orvane/pixels.h>

#include <cstddef>

namespace orvane {

class GlowFalloff;

/// addGlow for light that reaches far: the sums are estimated in frequencies (see estimateLight), and only
/// those that lie too near to a whole number are added up one by one, in the order of the definition.
///
/// level: which pixels shine; lights: how many do, at least 1. Cost: as good as that of the estimate, since
/// the estimate leaves about one sum in ten million in doubt. Sums meet whole numbers more often when all
/// weights are the same, and then have ways of their own where that could be so for all pixels: all sources
/// equally bright, or all within reach. May throw std::bad_alloc.
void addFarGlow(PixelView source, MutablePixelView target, int level, const GlowFalloff& falloff,
                std::size_t lights);

}  // namespace orvane
