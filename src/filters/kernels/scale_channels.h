#pragma once

#include <orvane/pixels.h>

#include <cstddef>

namespace orvane {

/// A straight line for one channel: clamp(trunc(channel x slope) + offset) in double precision, `offset` a
/// whole number. Any finite numbers are accepted.
struct ChannelLine {
    double slope = 1.0, offset = 0.0;
};

/// One line per colour channel.
struct ChannelLines {
    ChannelLine red, green, blue;
};

/// Maps every colour channel along its line; every target pixel gets alpha 255.
/// source, target: `count` words each, not overlapping. Faster than mapChannels, which it turns to for the
/// few slopes that 16-bit arithmetic does not meet exactly, negative ones among them.
void scaleChannels(const Argb* source, Argb* target, std::size_t count, const ChannelLines& lines) noexcept;

}  // namespace orvane
