#pragma once

#include <orvane/pixels.h>

#include <cstddef>

#include "filters/kernels/channel_tables.h"

namespace orvane {

/// Replaces every colour channel by its entry in the channel's table; every target pixel gets alpha 255.
/// This is the kernel of every operation whose result depends on one channel value alone.
/// source, target: `count` words each, not overlapping.
void mapChannels(const Argb* source, Argb* target, std::size_t count, const ChannelTables& tables) noexcept;

}  // namespace orvane
