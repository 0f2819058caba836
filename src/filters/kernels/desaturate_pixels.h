#pragma once

#include <orvane/pixels.h>

#include <cstddef>

namespace orvane {

/// Sets every colour channel to the luma trunc(0.2125 R + 0.7154 G + 0.0721 B); every target pixel gets
/// alpha 255. The result is that of the double-precision formula, its rounding errors included.
/// source, target: `count` words each, not overlapping.
void desaturatePixels(const Argb* source, Argb* target, std::size_t count) noexcept;

}  // namespace orvane
