#pragma once

#include <orvane/pixels.h>

#include <cstddef>
#include <cstdint>

#include "platform/graphics/stretch_axis.h"

/// The vectorised inner loops of stretching, each over one row. Rows of sums hold four floats per pixel (B,
/// G, R, A); for pictures with transparency the colours are weighted by their alpha.
namespace orvane::stretch_rows {

/// A weighted sum of rows: some with a weight of their own, and a run of rows of weight 1.
struct RowSum {
    const Argb* edges[3] = {};
    float weights[3] = {};
    int edgeCount = 0;
    const Argb* run = nullptr;
    int runLength = 0;
    std::ptrdiff_t stridePixels = 0;
    /// The rows of the picture that follow, to be fetched early.
    const Argb* ahead = nullptr;
    int rowsAhead = 0;
};

/// Pixels that one row of sums can have.
inline constexpr int kMaxRowLength = 1024;

void sumRowsOpaque(const RowSum& rows, std::size_t count, float* sums) noexcept;
void sumRowsWeightedByAlpha(const RowSum& rows, std::size_t count, float* sums) noexcept;

/// One sum per footprint. `sums` must hold finite values up to the pixel beyond each footprint's tail.
void sumColumns(const float* sums, const Footprint* footprints, int whole, std::size_t count,
                float* target) noexcept;

/// From sums to words, rounded: `scale` makes them averages.
void resolveOpaque(const float* sums, float scale, std::size_t count, Argb* target) noexcept;
/// An average whose alpha rounds to 0 becomes the word 0.
void resolveWeightedByAlpha(const float* sums, float scale, std::size_t count, Argb* target) noexcept;

/// The quick road for halving opaque pictures: each target pixel is the rounded mean of two pixels of either
/// row.
void averageQuads(const Argb* upper, const Argb* lower, std::size_t count, Argb* target) noexcept;

/// The quick road for enlarging opaque pictures: values in 1/128 of a level as 16-bit integers, weights in
/// 1/32768.
struct Neighbours {
    std::int32_t first = 0;       ///< between this source pixel and the next one
    std::int16_t weight[4] = {};  ///< of the next one, below 1, once per channel
};

/// Bytes to 1/128 levels.
void widenRow(const Argb* source, std::size_t count, std::int16_t* target) noexcept;
/// Interpolates along a widened row.
void interpolateRow(const std::int16_t* source, const Neighbours* neighbours, std::size_t count,
                    std::int16_t* target) noexcept;
/// Interpolates between two rows, by the weight of the lower one, and rounds.
void interpolateBetween(const std::int16_t* upper, const std::int16_t* lower, std::int16_t weight,
                        std::size_t count, Argb* target) noexcept;

}  // namespace orvane::stretch_rows
