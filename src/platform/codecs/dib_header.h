#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include <orvane/pixels.h>

/// The part of a device-independent bitmap in front of its pixels.
namespace orvane {

enum class DibCoding { Plain, RunLength8, RunLength4, Masks };

struct DibHeader {
    int width = 0, height = 0;  ///< within the size limit
    bool topDown = false;
    int bitsPerPixel = 0;  ///< 1, 2, 4, 8, 16, 24 or 32, and possible with the coding
    DibCoding coding = DibCoding::Plain;
    std::array<std::uint32_t, 4> masks{};  ///< red, green, blue, alpha, for 16 and 32 bits
    std::array<Argb, 256> palette{};       ///< for up to 8 bits; entries that the file lacks are black
    std::span<const std::uint8_t> pixels;  ///< from the first pixel byte to the end of the data
};

/// Reads and judges everything up to the pixels; nothing when the header makes no sense. See decodeDib().
[[nodiscard]] std::optional<DibHeader> parseDibHeader(std::span<const std::uint8_t> bytes,
                                                      std::size_t pixelOffset) noexcept;

}  // namespace orvane
