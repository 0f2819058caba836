#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/image_codecs.h"

namespace orvane {

[[nodiscard]] bool decodeGif(std::span<const std::uint8_t> bytes, DecodeTarget& target) noexcept;
[[nodiscard]] std::vector<std::uint8_t> encodeGif(PixelView picture) noexcept;

}  // namespace orvane
