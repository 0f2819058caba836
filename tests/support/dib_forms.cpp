#include "support/dib_forms.h"

#include "support/recording_decode_target.h"

namespace orvane::test {
namespace {

constexpr char kPaletteLetters[] = "kwrgbcmy";

/// Byte i of a little-endian number; zero beyond its four.
std::uint8_t byteOf(std::uint32_t value, int i) {
    return i < 4 ? std::uint8_t(value >> (8 * i)) : std::uint8_t(0);
}
/// The raw pixel of a letter: every channel all zeros or all ones.
std::uint32_t packPixel(const DibForm& form, char letter) {
    const Argb colour = colourOfLetter(letter);
    if (form.bits <= 8) return std::uint32_t(std::string(kPaletteLetters).find(letter));
    if (form.bits == 24 || form.compression == 0) {
        return form.bits == 16
                   ? ((colour >> 9) & 0x7c00u) | ((colour >> 6) & 0x3e0u) | ((colour >> 3) & 0x1fu)
                   : colour & 0xffffffu;
    }
    std::uint32_t packed = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const unsigned channel = (colour >> (i < 3 ? 16 - 8 * i : 24)) & 255u;
        if (channel != 0) packed |= form.masks[i];
    }
    return packed;
}

}  // namespace

void put(Bytes& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) out.push_back(byteOf(value, i));
}
void set(Bytes& out, std::size_t offset, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) out[offset + std::size_t(i)] = byteOf(value, i);
}

Bytes makeHeader(const DibForm& form, int width, int height, std::size_t paletteEntries) {
    Bytes out = {'B', 'M'};
    out.resize(14);
    put(out, form.headerBytes, 4);
    const int size = form.headerBytes == 12 ? 2 : 4;
    put(out, std::uint32_t(width), size);
    put(out, std::uint32_t(form.topDown ? -height : height), size);
    put(out, 1, 2);
    put(out, std::uint32_t(form.bits), 2);
    out.resize(14 + form.headerBytes);
    if (form.headerBytes >= 40) {
        set(out, 30, form.compression, 4);
        set(out, 46, form.coloursUsed, 4);
        if (form.compression == 3 || form.compression == 6) {
            const std::size_t count = form.headerBytes >= 56 || form.compression == 6 ? 4 : 3;
            if (form.headerBytes == 40) out.resize(out.size() + 4 * count);
            for (std::size_t i = 0; i < count; ++i) set(out, 54 + 4 * i, form.masks[i], 4);
        }
    }
    for (std::size_t i = 0; i < paletteEntries; ++i) {
        put(out, colourOfLetter(kPaletteLetters[i % 8]), form.headerBytes == 12 ? 3 : 4);
    }
    set(out, 10, std::uint32_t(out.size()), 4);
    return out;
}

Bytes makeBmp(const DibForm& form, const std::string& letters) {
    const LetterPicture shape(letters);
    Bytes out = makeHeader(form, shape.width, shape.height, form.bits <= 8 ? std::size_t(1) << form.bits : 0);
    for (int row = 0; row < shape.height; ++row) {
        const int y = form.topDown ? row : shape.height - 1 - row;
        const std::size_t start = out.size();
        unsigned buffer = 0;
        for (int x = 0; x < shape.width; ++x) {
            const std::uint32_t pixel = packPixel(form, letters[std::size_t(y * (shape.width + 1) + x)]);
            if (form.bits >= 8) {
                put(out, pixel, form.bits / 8);
                continue;
            }
            buffer = buffer << form.bits | pixel;
            const int perByte = 8 / form.bits;
            if ((x + 1) % perByte == 0 || x + 1 == shape.width) {
                const int missing = (perByte - (x + 1) % perByte) % perByte;
                out.push_back(std::uint8_t(buffer << (missing * form.bits)));
                buffer = 0;
            }
        }
        while ((out.size() - start) % 4 != 0) out.push_back(0xee);
    }
    return out;
}

std::string lettersFor(const DibForm& form, std::size_t width) {
    const std::string blackAndWhite = "kwkkwwwkk/wkwkwkwwk/kkkkwwwkw";
    const std::string fourColours = "kwrgkwrgr/rrgwkgkgr";
    const std::string colours = "rgbcmykwr/kkwwrrgcb/ymcbgrwkk";
    const std::string& letters = form.bits == 1 ? blackAndWhite : form.bits == 2 ? fourColours : colours;
    std::string cut;
    for (std::size_t start = 0; start < letters.size(); start += 10) {
        if (start > 0) cut += '/';
        cut += letters.substr(start, width);
    }
    return cut;
}

}  // namespace orvane::test
