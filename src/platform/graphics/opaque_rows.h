#pragma once

#include <orvane/pixels.h>

#include <cstddef>
#include <cstdint>

/// The quick roads for stretching opaque pictures, in whole numbers.
namespace orvane::opaque_rows {

/// Halving both sides: each target pixel is the rounded mean of two pixels of either row.
void averageQuads(const Argb* upper, const Argb* lower, std::size_t count, Argb* target) noexcept;

/// Enlarging: values in 1/128 of a level as 16-bit integers, weights in 1/32768.
struct Neighbours {
    std::int32_t first = 0;       ///< between this source pixel and the next one
    std::int16_t weight[4] = {};  ///< of the next one, below 1, once per channel
};

/// Bytes to 1/128 levels. `ahead` is the row that will be next, to be fetched meanwhile: rows of a tile lie
/// far apart in memory, where hardware does not foresee them.
void widenRow(const Argb* source, const Argb* ahead, std::size_t count, std::int16_t* target) noexcept;
/// Interpolates along a widened row.
void interpolateRow(const std::int16_t* source, const Neighbours* neighbours, std::size_t count,
                    std::int16_t* target) noexcept;
/// Interpolates between two rows, by the weight of the lower one, and rounds. `streamed`: past the caches.
void interpolateBetween(const std::int16_t* upper, const std::int16_t* lower, std::int16_t weight,
                        std::size_t count, Argb* target, bool streamed) noexcept;

}  // namespace orvane::opaque_rows
