#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include <orvane/pixels.h>

/// Picture files to pixels and back. Each back end supplies these functions for the codecs of its system.
namespace orvane {

/// The picture formats that can be written, with the numbers that hosts send to `SaveImage`.
enum class ImageFormat { Bmp = 0, Jpeg = 1, Gif = 2, Tiff = 3, Png = 4 };

/// Bytes that one picture may take; larger ones are refused before anything is allocated.
inline constexpr std::uint64_t kMaxImageBytes = 0x7fffffffu;

/// Whether a picture of this size is within the limit (both sides at least 1).
constexpr bool isAllowedImageSize(std::int64_t width, std::int64_t height) {
    return width >= 1 && height >= 1 && width <= 0x7fffffff && height <= 0x7fffffff &&
           std::uint64_t(width) * std::uint64_t(height) <= kMaxImageBytes / 4;
}

/// Where a decoder puts its pixels. The caller decides where they live, so that a decoder writes a picture
/// straight into its final memory.
class DecodeTarget {
 public:
    virtual ~DecodeTarget() = default;
    /// Contiguous memory for the picture, contents undefined; a null view when the size is beyond the limit
    /// or memory ran out, upon which the decoder gives up. Called at most once, with a size that the decoder
    /// has found plausible for the amount of data it was given.
    virtual MutablePixelView allocate(int width, int height) = 0;
};

/// Decodes BMP, JPEG, PNG, GIF (first frame), TIFF (first page) and WebP, told apart by their contents.
/// Pixels of formats without alpha come out with alpha 255. Returns false for anything undecodable,
/// truncated or over the size limit; what the target holds is then undefined. Never throws.
[[nodiscard]] bool decodeImage(std::span<const std::uint8_t> bytes, DecodeTarget& target) noexcept;

/// Encodes a picture; quality (0..100) counts for JPEG only. BMP and JPEG hold no alpha: the colours are
/// written as they stand. The result is empty when encoding failed (out of memory, a side that the format
/// cannot hold). Never throws.
[[nodiscard]] std::vector<std::uint8_t> encodeImage(PixelView picture, ImageFormat format,
                                                    int quality) noexcept;

}  // namespace orvane
