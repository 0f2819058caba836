#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/image_codecs.h"

/// GIF by giflib.
namespace orvane {

/// Decodes the first image of a GIF file, placed on the logical screen, which is enlarged where the image
/// juts out. What the image leaves free, and its transparent pixels, come out as 0x00000000; palette entries
/// that the file lacks are black. False for data that end within the first image.
[[nodiscard]] bool decodeGif(std::span<const std::uint8_t> bytes, DecodeTarget& target) noexcept;

/// Encodes with a palette of up to 256 colours (quantise()); a pixel of alpha below 128 becomes transparent,
/// any other opaque. Empty for sides above 65535 and when memory ran out.
[[nodiscard]] std::vector<std::uint8_t> encodeGif(PixelView picture) noexcept;

}  // namespace orvane
