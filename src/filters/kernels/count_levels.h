#pragma once

#include <orvane/pixels.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace orvane {

/// How many pixels have each level 0..255.
using LevelCounts = std::array<std::uint32_t, 256>;

struct ChannelCounts {
    LevelCounts red, green, blue;
};

/// The levels of one channel of `count` pixels; shift is the channel's lowest bit in the word (red 16,
/// green 8, blue 0).
LevelCounts countChannel(const Argb* pixels, std::size_t count, int shift) noexcept;

/// The levels of the three colour channels, in one pass.
ChannelCounts countChannels(const Argb* pixels, std::size_t count) noexcept;

/// The luma levels trunc(0.2125 R + 0.7154 G + 0.0721 B), the formula in double precision.
LevelCounts countLuma(const Argb* pixels, std::size_t count) noexcept;

}  // namespace orvane
