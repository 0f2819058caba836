#pragma once

#include <orvane/pixels.h>

#include <cstddef>
#include <cstdint>

/// Bilinear samples along a straight line through a picture.
namespace orvane::sample_rows {

/// Positions in 2^-32 pixels. A sample lies between the four pixels whose upper left one is (x, y) rounded
/// down; the upper 15 bits of what remains are the weights of the right and of the lower ones. Pixels beyond
/// an edge are those on the edge.
struct Line {
    static constexpr int kFractionBits = 32;
    static constexpr int kWeightBits = 15;

    std::int64_t x = 0, y = 0;          ///< the first sample
    std::int64_t stepX = 0, stepY = 0;  ///< from each to the next
};

/// Samples of a picture whose pixels are opaque, as rounded words: interpolated downwards in 1/128 levels,
/// then sideways. `ahead` is a line that will be sampled soon, to be fetched meanwhile: hardware foresees
/// rows of memory, but not lines across them.
void sampleOpaque(const PixelView& source, const Line& line, const Line& ahead, std::size_t count,
                  Argb* target) noexcept;

/// Sums of the four weighted pixels, as stretch_sums::resolveWeightedByAlpha takes them.
void sampleWeightedByAlpha(const PixelView& source, const Line& line, const Line& ahead, std::size_t count,
                           float* sums) noexcept;

}  // namespace orvane::sample_rows
