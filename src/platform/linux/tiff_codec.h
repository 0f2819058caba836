#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/image_codecs.h"

namespace orvane {

[[nodiscard]] bool decodeTiff(std::span<const std::uint8_t> bytes, DecodeTarget& target) noexcept;
[[nodiscard]] std::vector<std::uint8_t> encodeTiff(PixelView picture) noexcept;

}  // namespace orvane
