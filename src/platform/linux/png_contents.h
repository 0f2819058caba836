#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include <orvane/pixels.h>

#include "platform/linux/png_format.h"

/// What a PNG file says about its picture, before the picture itself is unpacked.
namespace orvane::png {

/// The pixels (x0 + i * stepX, y0 + j * stepY): one of the seven interlace passes, or the whole picture.
struct Pass {
    int x0, y0, stepX, stepY;
    [[nodiscard]] int columns(int width) const { return (width - x0 + stepX - 1) / stepX; }
    [[nodiscard]] int rows(int height) const { return (height - y0 + stepY - 1) / stepY; }
};
inline constexpr Pass kWhole[] = {{0, 0, 1, 1}};
inline constexpr Pass kAdam7[] = {{0, 0, 8, 8}, {4, 0, 8, 8}, {0, 4, 4, 8}, {2, 0, 4, 4},
                                  {0, 2, 2, 4}, {1, 0, 2, 2}, {0, 1, 1, 2}};

struct Header {
    int width = 0, height = 0;
    unsigned bitDepth = 0;
    std::uint8_t colourType = 0;
    bool interlaced = false;

    [[nodiscard]] unsigned channels() const {
        switch (colourType) {
            case kRgb:
                return 3;
            case kGreyAlpha:
                return 2;
            case kRgba:
                return 4;
            default:
                return 1;
        }
    }
    [[nodiscard]] unsigned bitsPerPixel() const { return bitDepth * channels(); }
    [[nodiscard]] std::size_t pixelBytes() const { return std::max(1u, bitsPerPixel() / 8); }
    [[nodiscard]] std::size_t rowBytes(int columns) const {
        return (std::size_t(columns) * bitsPerPixel() + 7) / 8;
    }
    [[nodiscard]] std::span<const Pass> passes() const {
        return interlaced ? std::span<const Pass>(kAdam7) : std::span<const Pass>(kWhole);
    }
    [[nodiscard]] std::uint64_t rawBytes() const {
        std::uint64_t total = 0;
        for (const Pass& pass : passes())
            if (const int columns = pass.columns(width); columns > 0)
                total += std::uint64_t(pass.rows(height)) * (1 + rowBytes(columns));
        return total;
    }
};

/// Everything of a file that its picture needs.
struct Contents {
    Header header;
    /// Palette entries; of a palette too short for the picture's indices the rest is opaque black.
    std::array<Argb, 256> palette{};
    bool hasPalette = false;
    /// The one grey or colour that stands for full transparency, in samples of the file's depth.
    bool hasTransparentColour = false;
    std::array<std::uint16_t, 3> transparentColour{};
    std::vector<std::span<const std::uint8_t>> data;
    std::uint64_t dataBytes = 0;
};

/// Walks the chunks of a file up to its end mark and keeps what the picture needs; `contents` refers to
/// `bytes`. False for a damaged or unknown critical chunk, an impossible header, a missing palette or a
/// missing end. May throw std::bad_alloc: the list of data spans is the only thing allocated.
[[nodiscard]] bool readContents(std::span<const std::uint8_t> bytes, Contents& contents);

}  // namespace orvane::png
