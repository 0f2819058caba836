#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/image_codecs.h"

/// The block of memory in which a clipboard carries a picture: a device-independent bitmap without the header
/// of a file.
namespace orvane {

/// The picture as a clipboard block: a 40-byte header, 24 bits per pixel, bottom row first, rows of whole
/// 32-bit words, then 4 zero bytes of slack. Alpha is dropped, the colours are written as they stand. Empty
/// when the picture is, or when memory ran out.
[[nodiscard]] std::vector<std::uint8_t> encodeClipboardBitmap(PixelView picture) noexcept;

/// The same with alpha: a 124-byte header with a mask for each channel, 32 bits per pixel, no slack.
[[nodiscard]] std::vector<std::uint8_t> encodeClipboardBitmapWithAlpha(PixelView picture) noexcept;

/// Decodes a block of any kind that decodeDib() knows. The pixels follow the header and its masks or colour
/// table, however many colours that claims; what stands behind the pixels is ignored. False for anything
/// else, wrapped JPEG and PNG pictures included: they are meant for printers.
[[nodiscard]] bool decodeClipboardBitmap(std::span<const std::uint8_t> block, DecodeTarget& target) noexcept;

}  // namespace orvane
