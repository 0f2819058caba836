#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>

/// What reading and writing PNG share: the layout of the container and of the raw (inflated) picture.
///
///     signature | chunk ... | chunk      chunk = length(4) type(4) data(length) crc(4), big-endian,
///                                        the check sum covering type and data
///     raw picture = rows, each one filter byte and then the packed samples
namespace orvane::png {

inline constexpr std::uint8_t kSignature[8] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
inline constexpr std::size_t kChunkOverhead = 12;
inline constexpr std::uint32_t kMaxChunkLength = 0x7fffffffu;

constexpr std::uint32_t chunkType(const char (&name)[5]) {
    return std::uint32_t(std::uint8_t(name[0])) << 24 | std::uint32_t(std::uint8_t(name[1])) << 16 |
           std::uint32_t(std::uint8_t(name[2])) << 8 | std::uint32_t(std::uint8_t(name[3]));
}

/// A decoder must understand a critical chunk (capital first letter) and may skip any other.
constexpr bool isCritical(std::uint32_t type) { return (type & 0x20000000u) == 0; }

enum ColourType : std::uint8_t { kGrey = 0, kRgb = 2, kPalette = 3, kGreyAlpha = 4, kRgba = 6 };

enum Filter : std::uint8_t { kNone = 0, kSub = 1, kUp = 2, kAverage = 3, kPaeth = 4 };

inline std::uint32_t readBig32(const std::uint8_t* at) {
    return std::uint32_t(at[0]) << 24 | std::uint32_t(at[1]) << 16 | std::uint32_t(at[2]) << 8 | at[3];
}

inline void writeBig32(std::uint8_t* at, std::uint32_t value) {
    at[0] = std::uint8_t(value >> 24);
    at[1] = std::uint8_t(value >> 16);
    at[2] = std::uint8_t(value >> 8);
    at[3] = std::uint8_t(value);
}

/// Undefined contents, null when memory ran out: these buffers are large and are overwritten at once.
using Bytes = std::unique_ptr<std::uint8_t[]>;
inline Bytes allocateBytes(std::uint64_t count) {
    if (count > PTRDIFF_MAX) return nullptr;
    return Bytes(new (std::nothrow) std::uint8_t[std::size_t(count)]);
}

}  // namespace orvane::png
