#pragma once

#include <cstddef>
#include <cstdint>

#include <orvane/pixels.h>

namespace orvane {

/// Writes `count` colours between `from` and `to`, the first at `position` and each next one `step` further.
/// Positions are fractions of 2^64 of the way, and overflow starts over at `from`. Their upper 16 bits p
/// count: a channel is from + (to - from) p / 65536, rounded to nearest, halves up. The same bits on every
/// machine.
void colourRamp(Argb from, Argb to, std::uint64_t position, std::uint64_t step, std::size_t count,
                Argb* colours) noexcept;

}  // namespace orvane
