#pragma once

#include <orvane/pixels.h>

#include <cstddef>

namespace orvane {

/// The smallest and the largest value of each colour channel, as two pixels of alpha 255.
struct ChannelRange {
    Argb minimum = 0xFFFFFFFFu, maximum = 0xFF000000u;
};

/// The range of `count` pixels, whatever their alpha; minimum 255 and maximum 0 when there are none.
[[nodiscard]] ChannelRange channelRange(const Argb* source, std::size_t count) noexcept;

}  // namespace orvane
