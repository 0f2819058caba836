#pragma once

#include <orvane/pixels.h>

#include <cstddef>

#include "filters/kernels/channel_tables.h"

namespace orvane {

/// Replaces every colour channel by the entry that its table has for the pixel's grey level (R + G + B) / 3;
/// every target pixel gets alpha 255. source, target: `count` words each, not overlapping.
void mapGreyLevels(const Argb* source, Argb* target, std::size_t count, const ChannelTables& tables) noexcept;

}  // namespace orvane
