#pragma once

#include <orvane/pixels.h>

#include <cstddef>

namespace orvane {

/// The negative of every colour channel; every target pixel gets alpha 255.
/// source, target: `count` words each, not overlapping.
void invertPixels(const Argb* source, Argb* target, std::size_t count) noexcept;

}  // namespace orvane
