#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/image_codecs.h"

/// TIFF by libtiff, in memory and in silence.
namespace orvane {

/// Decodes the first page: strips or tiles, planes together or apart, 1 to 16 bits, 32 bits and floating
/// point; grey, palette, RGB and CMYK with or without alpha; YCbCr, Lab and LogLuv without. The orientation
/// is applied. Straight alpha is kept as it is and premultiplied alpha divided out; extra samples that are
/// not declared as alpha are left out. False for truncated data and for sizes that the amount of data makes
/// implausible.
[[nodiscard]] bool decodeTiff(std::span<const std::uint8_t> bytes, DecodeTarget& target) noexcept;

/// Lossless: 8 bits per channel, with straight alpha when any pixel is not opaque. Empty when memory ran out.
[[nodiscard]] std::vector<std::uint8_t> encodeTiff(PixelView picture) noexcept;

}  // namespace orvane
