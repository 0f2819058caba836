#pragma once

#include <orvane/pixels.h>

#include <cstddef>
#include <cstdint>

namespace orvane {

/// Adds to R, G and B of each pixel its number of levels, up to 255; alpha becomes 255.
///
/// source, target: `count` pixels, the same or not overlapping.
void brightenPixels(const Argb* source, const std::uint8_t* levels, Argb* target, std::size_t count);

}  // namespace orvane
