#include "support/recording_decode_target.h"

#include <algorithm>

namespace orvane {
namespace {

constexpr int kGuardPixels = 3;
constexpr Argb kGuard = 0x5aa5c33cu;

struct NamedColour {
    char letter;
    Argb colour;
};
constexpr NamedColour kColours[] = {
    {'.', 0x00000000u}, {'k', 0xff000000u}, {'w', 0xffffffffu}, {'r', 0xffff0000u}, {'g', 0xff00ff00u},
    {'b', 0xff0000ffu}, {'c', 0xff00ffffu}, {'m', 0xffff00ffu}, {'y', 0xffffff00u},
};

}  // namespace

MutablePixelView RecordingDecodeTarget::allocate(int width, int height) {
    ++requests;
    requestedWidth = width;
    requestedHeight = height;
    if (std::uint64_t(width) * std::uint64_t(height) > maxPixels_) return {};
    memory_.assign(std::size_t(width + kGuardPixels) * std::size_t(height), kGuard);
    return {memory_.data(), width, height, width + kGuardPixels};
}

PixelView RecordingDecodeTarget::picture() const {
    if (memory_.empty()) return {};
    return {memory_.data(), requestedWidth, requestedHeight, requestedWidth + kGuardPixels};
}

bool RecordingDecodeTarget::isGuardIntact() const {
    const PixelView all = picture();
    for (int y = 0; y < all.height; ++y) {
        const Argb* end = all.row(y) + all.width;
        if (std::count(end, end + kGuardPixels, kGuard) != kGuardPixels) return false;
    }
    return true;
}

std::string lettersOf(PixelView picture) {
    std::string letters;
    for (int y = 0; y < picture.height; ++y) {
        if (y > 0) letters += '/';
        for (int x = 0; x < picture.width; ++x) {
            const auto* found =
                std::find_if(std::begin(kColours), std::end(kColours),
                             [&](const NamedColour& c) { return c.colour == picture.at(x, y); });
            letters += found == std::end(kColours) ? '?' : found->letter;
        }
    }
    return letters;
}

Argb colourOfLetter(char letter) {
    for (const NamedColour& named : kColours) {
        if (named.letter == letter) return named.colour;
    }
    return 0x12345678u;
}

LetterPicture::LetterPicture(const std::string& letters) {
    width = int(std::min(letters.find('/'), letters.size()));
    for (char letter : letters) {
        if (letter != '/') pixels.push_back(colourOfLetter(letter));
    }
    height = int(pixels.size()) / width;
}

std::string decodedLetters(DecodeFunction decode, std::span<const std::uint8_t> bytes) {
    RecordingDecodeTarget target;
    if (!decode(bytes, target)) return "refused";
    return target.isGuardIntact() ? lettersOf(target.picture()) : "guard";
}

bool decodesTo(DecodeFunction decode, std::span<const std::uint8_t> bytes, PixelView expected) {
    RecordingDecodeTarget target;
    if (!decode(bytes, target) || !target.isGuardIntact()) return false;
    const PixelView actual = target.picture();
    if (actual.width != expected.width || actual.height != expected.height) return false;
    for (int y = 0; y < actual.height; ++y) {
        if (!std::equal(actual.row(y), actual.row(y) + actual.width, expected.row(y))) return false;
    }
    return true;
}

int countAcceptedPrefixes(DecodeFunction decode, std::span<const std::uint8_t> bytes) {
    int accepted = 0;
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        const std::vector<std::uint8_t> prefix(bytes.begin(), bytes.begin() + std::ptrdiff_t(length));
        RecordingDecodeTarget target;
        if (decode(prefix, target)) ++accepted;
    }
    return accepted;
}

std::vector<Argb> makeTestPixels(int width, int height, bool opaque) {
    std::vector<Argb> pixels;
    std::uint32_t noise = 1;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            noise = noise * 214013u + 2531011u;
            Argb pixel =
                makeOpaque(unsigned(x * 255 / width), unsigned(y * 255 / height), (noise >> 16) & 63u);
            if ((x / 7 + y / 5) % 4 == 0) pixel = makeOpaque(250, 20, 90);
            if (!opaque) pixel = (pixel & 0xffffffu) | (noise >> 20) << 24;
            pixels.push_back(pixel);
        }
    }
    return pixels;
}

}  // namespace orvane
