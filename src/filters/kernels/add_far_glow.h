#pragma once

#include <orvane/pixels.h>

#include <cstddef>

namespace orvane {

class GlowFalloff;

/// addGlow for light that reaches far: the sums are estimated in frequencies (see estimateLight), and only
/// those that lie too near to a whole number are added up one by one, in the order of the definition.
///
/// level: which pixels shine; lights: how many do, at least 1. Cost: as good as that of the estimate, since
/// the estimate leaves about one sum in ten million in doubt. Sums that meet whole numbers by design cost a
/// step per pixel within reach each; they do so when all weights are the same, which is why pictures whose
/// sources are all equally bright have a way of their own then. May throw std::bad_alloc.
void addFarGlow(PixelView source, MutablePixelView target, int level, const GlowFalloff& falloff,
                std::size_t lights);

}  // namespace orvane
