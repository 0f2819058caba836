#pragma once

#include <orvane/pixels.h>

#include <cstddef>
#include <vector>

namespace orvane {

class GlowFalloff;

/// Enough for ten million pixels at once.
constexpr std::size_t kSpectrumBytes = std::size_t{256} << 20;

/// The light that arrives at every pixel of a picture, row by row without gaps.
struct LightSums {
    std::vector<double> values;
    double error;  ///< none is farther than this from the sum of the products of lights and weights
};

/// Estimates the sums by a convolution in frequencies. Where a sum is above 256, the value may be any other
/// above 256, so that one very bright pixel does not spoil the precision of all the rest.
///
/// level: which pixels shine, see lightOf; from 1. Cost: some hundred operations per pixel, whatever the
/// reach of the light. Memory: 8 bytes per pixel, some rows and columns, and up to spectrumBytes for the
/// columns of the spectrum that are at hand; with less, rows are transformed more often. May throw
/// std::bad_alloc.
LightSums estimateLight(PixelView source, int level, const GlowFalloff& falloff,
                        std::size_t spectrumBytes = kSpectrumBytes);

}  // namespace orvane
