#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/image_codecs.h"

/// PNG to pixels and back, by libpng.
namespace orvane {

/// Decodes every colour type and bit depth, interlaced or not, with palette, single-colour or full
/// transparency. 16-bit samples are rounded to the nearest 8-bit value; gamma and colour profiles are left
/// alone. False for a file that is cut short, whose critical chunks fail their check sums, or whose picture
/// data do not fill the promised size. A header that claims more than so many bytes can hold is found out
/// before the target is asked for memory.
[[nodiscard]] bool decodePng(std::span<const std::uint8_t> bytes, DecodeTarget& target) noexcept;

/// Writes 8 bits per channel, RGB when every pixel is opaque and RGBA otherwise; decoding gives back the same
/// pixels exactly. Files of photographs come within a tenth of the size that the library's defaults give
/// them, much sooner. Empty when memory ran out or the picture is empty.
[[nodiscard]] std::vector<std::uint8_t> encodePng(PixelView picture) noexcept;

}  // namespace orvane
