#pragma once

#include <orvane/pixels.h>

#include <cstddef>

namespace orvane {

/// Replaces every pixel by one of two words: `above` where its grey level (R + G + B) / 3 is greater than
/// `level`, else `notAbove`. level: any integer. source, target: `count` words each, not overlapping.
void thresholdPixels(const Argb* source, Argb* target, std::size_t count, int level, Argb above,
                     Argb notAbove) noexcept;

}  // namespace orvane
