#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include <orvane/export.h>

/// For hosts whose system exchanges pictures as files: from files to the blocks of `ClipboardServices`, and
/// back. Any bytes may be given, pictures of up to 2 GB are read, and any thread may call. Every function
/// answers with nothing (an empty vector) when the bytes hold no picture, when it is cut short, or when
/// memory runs out.
namespace orvane {

/// The picture in the bytes of a BMP, PNG, JPEG, GIF (first frame), TIFF (first page) or WebP file as a
/// block, which keeps the transparency if there is any.
ORVANE_EXPORT std::vector<std::uint8_t> clipboardBlockFromFile(std::span<const std::uint8_t> file) noexcept;

/// The picture in a block as a BMP file of 24 bits per pixel, the kind that every program reads. Transparency
/// is dropped, the colours are written as they stand.
ORVANE_EXPORT std::vector<std::uint8_t> bmpFromClipboardBlock(std::span<const std::uint8_t> block) noexcept;

/// The picture in a block as a PNG file, with its transparency.
ORVANE_EXPORT std::vector<std::uint8_t> pngFromClipboardBlock(std::span<const std::uint8_t> block) noexcept;

}  // namespace orvane
