#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Device-independent bitmaps of every form, as BMP files; without its first 14 bytes a file is what a
/// clipboard carries.
namespace orvane::test {

using Bytes = std::vector<std::uint8_t>;
inline constexpr std::size_t kBmpFileHeaderBytes = 14;

/// Little-endian numbers of so many bytes, at the end or over what is there.
void put(Bytes& out, std::uint32_t value, int bytes);
void set(Bytes& out, std::size_t offset, std::uint32_t value, int bytes);

/// What one BMP file looks like in front of its pixels.
struct DibForm {
    const char* name;
    std::uint32_t headerBytes;
    int bits;
    std::uint32_t compression = 0;
    std::array<std::uint32_t, 4> masks = {};
    bool topDown = false;
    std::uint32_t coloursUsed = 0;
};

/// Everything in front of the pixels. The palette is k w r g b c m y (see lettersOf) over and over.
Bytes makeHeader(const DibForm& form, int width, int height, std::size_t paletteEntries);
/// The picture that the letters show.
Bytes makeBmp(const DibForm& form, const std::string& letters);

/// All forms without run lengths.
inline const DibForm kDibForms[] = {
    {"core 1", 12, 1},
    {"core 4", 12, 4},
    {"core 8", 12, 8},
    {"core 24", 12, 24},
    {"short OS/2 24", 16, 24},
    {"long OS/2 8", 64, 8},
    {"info 1", 40, 1},
    {"info 1 top-down", 40, 1, 0, {}, true},
    {"info 2", 40, 2},
    {"info 4", 40, 4},
    {"info 8", 40, 8},
    {"info 8 top-down", 40, 8, 0, {}, true},
    {"info 16", 40, 16},
    {"info 24", 40, 24},
    {"info 24 top-down", 40, 24, 0, {}, true},
    {"info 32 with alpha byte 0", 40, 32},
    {"V5 32 without masks", 124, 32},
    {"565", 40, 16, 3, {0xf800, 0x7e0, 0x1f, 0}},
    {"4444 behind the header", 40, 16, 6, {0xf00, 0xf0, 0xf, 0xf000}},
    {"1555 in a header of 56", 56, 16, 3, {0x7c00, 0x3e0, 0x1f, 0x8000}},
    {"mask of 1 bit each", 52, 16, 3, {0x8000, 0x10, 0x1, 0}},
    {"info 32 masks reversed", 40, 32, 3, {0xff, 0xff00, 0xff0000, 0}},
    {"V3 32 shifted masks", 56, 32, 3, {0xff000000, 0xff0000, 0xff00, 0xff}},
    {"V4 32 in order", 108, 32, 3, {0xff0000, 0xff00, 0xff, 0xff000000}},
    {"V5 10 bits each", 124, 32, 3, {0x3ff00000, 0xffc00, 0x3ff, 0xc0000000}, true},
    {"V5 17 bits of green", 124, 32, 3, {0xfe000000, 0x1ffff00, 0xff, 0}},
};

/// Rows of a picture in colours that the form has, cut to so many columns (up to 9), so that they end at
/// every place within a byte and a word.
std::string lettersFor(const DibForm& form, std::size_t width);

}  // namespace orvane::test
