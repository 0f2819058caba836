#pragma once

#include <orvane/pixels.h>

#include <cstddef>

namespace orvane {

/// Adds a number to each colour channel, held within 0..255; every target pixel gets alpha 255.
/// red, green, blue: any integer; beyond -255..255 a channel ends at 0 or 255 whatever it was.
/// source, target: `count` words each, not overlapping.
void addToChannels(const Argb* source, Argb* target, std::size_t count, int red, int green,
                   int blue) noexcept;

}  // namespace orvane
