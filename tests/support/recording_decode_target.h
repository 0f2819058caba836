#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/image_codecs.h"

namespace orvane {

/// A decoder's destination that remembers what was asked of it. Rows are further apart than they are long,
/// and the space between them is guarded.
class RecordingDecodeTarget : public DecodeTarget {
 public:
    explicit RecordingDecodeTarget(std::uint64_t maxPixels = 1u << 22) : maxPixels_(maxPixels) {}

    MutablePixelView allocate(int width, int height) override;

    [[nodiscard]] PixelView picture() const;
    [[nodiscard]] bool isGuardIntact() const;
    int requests = 0;
    int requestedWidth = 0, requestedHeight = 0;

 private:
    std::uint64_t maxPixels_;
    std::vector<Argb> memory_;
};

/// The picture as one letter per pixel, rows separated by '/': k black, w white, r, g, b, c, m, y the pure
/// colours, '.' for 0x00000000 and '?' for anything else.
[[nodiscard]] std::string lettersOf(PixelView picture);
[[nodiscard]] Argb colourOfLetter(char letter);

/// A picture made of such letters; every row must be equally long.
struct LetterPicture {
    explicit LetterPicture(const std::string& letters);
    [[nodiscard]] PixelView view() const { return {pixels.data(), width, height, width}; }
    int width = 0, height = 0;
    std::vector<Argb> pixels;
};

using DecodeFunction = bool (*)(std::span<const std::uint8_t>, DecodeTarget&) noexcept;

/// The decoded picture as letters, "refused" where the decoder answers false, "guard" where it wrote beyond a
/// row.
[[nodiscard]] std::string decodedLetters(DecodeFunction decode, std::span<const std::uint8_t> bytes);

/// Whether decoding gives exactly this picture.
[[nodiscard]] bool decodesTo(DecodeFunction decode, std::span<const std::uint8_t> bytes, PixelView expected);

/// Decodes every beginning of the data, each from memory of just that size so that a sanitizer sees any read
/// beyond it, and returns how many were accepted.
int countAcceptedPrefixes(DecodeFunction decode, std::span<const std::uint8_t> bytes);

/// A picture of smooth areas, noise and hard edges, the same at every call.
[[nodiscard]] std::vector<Argb> makeTestPixels(int width, int height, bool opaque);

}  // namespace orvane
