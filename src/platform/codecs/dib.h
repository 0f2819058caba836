#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/image_codecs.h"

/// The device-independent bitmap: header, colour masks or palette, pixel rows. A BMP file is one of these
/// behind a file header of 14 bytes; a clipboard carries it bare.
namespace orvane {

/// Decodes a bitmap that begins with its header of 12, 16, 40, 52, 56, 64, 108 or 124 bytes; 1, 2, 4, 8, 16,
/// 24 and 32 bits; plain, run-length coded and with colour masks of any width; either row order. Pixels are
/// opaque unless an alpha mask says otherwise.
///
/// pixelOffset: where the pixel data begin; if that is not behind the header, they follow the palette.
/// False for truncated pixels and for sizes that the amount of data makes implausible.
[[nodiscard]] bool decodeDib(std::span<const std::uint8_t> bytes, std::size_t pixelOffset,
                             DecodeTarget& target) noexcept;

/// The bytes that appendDib() adds: a 40-byte header and rows of whole 32-bit words.
[[nodiscard]] std::uint64_t dibBytes(int width, int height);

/// Appends the picture as an uncompressed bitmap of 24 bits, bottom row first; alpha is dropped. Memory for
/// it must be reserved beforehand or the call may throw std::bad_alloc.
void appendDib(PixelView picture, std::vector<std::uint8_t>& out);

}  // namespace orvane
