#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/image_codecs.h"

/// BMP files, read and written without any library.
namespace orvane {

/// Decodes a BMP file of any kind that decodeDib() knows; the sizes in the file header are not trusted.
[[nodiscard]] bool decodeBmp(std::span<const std::uint8_t> bytes, DecodeTarget& target) noexcept;

/// 24 bits, bottom row first, not compressed: the kind that every program reads. Alpha is dropped, the
/// colours are written as they stand. Empty when memory ran out or the file would exceed 4 GB.
[[nodiscard]] std::vector<std::uint8_t> encodeBmp(PixelView picture) noexcept;

}  // namespace orvane
