#pragma once

#include <orvane/pixels.h>

#include <cstddef>
#include <cstdint>

#include "platform/graphics/stretch_axis.h"

/// Stretching by weighted sums: source rows are summed into a row of sums, columns of sums into a shorter or
/// longer row, and that becomes words. A sum has four floats per pixel (B, G, R, A); for pictures with
/// transparency the colours are weighted by their alpha.
namespace orvane::stretch_sums {

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

}  // namespace orvane::stretch_sums
