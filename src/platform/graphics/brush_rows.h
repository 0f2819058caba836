#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "platform/graphics/brush.h"

/// The kinds of brushes, one row at a time; what `brushRow` is made of. Nothing allocates.
namespace orvane {

void hatchRow(const HatchBrush& brush, int x, int y, std::size_t count, Argb* colours) noexcept;
void gradientRow(const GradientBrush& brush, int x, int y, std::size_t count, Argb* colours) noexcept;
void textureRow(const TextureBrush& brush, int x, int y, std::size_t count, Argb* colours) noexcept;

/// Where a coordinate falls in a pattern that repeats every `period` (at least 1): 0..period - 1, also for
/// negative coordinates.
constexpr std::int64_t positionInPeriod(std::int64_t coordinate, std::int64_t period) {
    const std::int64_t rest = coordinate % period;
    return rest < 0 ? rest + period : rest;
}

/// Fills a row that repeats every `period` pixels, of which the first period stands already.
inline void repeatRow(Argb* colours, std::size_t period, std::size_t count) {
    for (std::size_t done = period; done < count;) {
        const std::size_t length = std::min(done, count - done);
        std::copy_n(colours, length, colours + done);
        done += length;
    }
}

}  // namespace orvane
