#pragma once

#include <orvane/pixels.h>

#include <cstdint>
#include <random>
#include <span>
#include <vector>

#include "document/image_document.h"

namespace orvane::test {

/// Random colours and alphas, with runs of greys and of one colour in between, as photographs have them.
inline std::vector<Argb> randomPicture(std::size_t count, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<Argb> pixels(count);
    for (std::size_t i = 0; i < count; ++i) {
        const auto word = static_cast<Argb>(random());
        const bool grey = (i / 37) % 4 == 1, flat = (i / 37) % 4 == 3 && i > 0;
        pixels[i] = flat ? pixels[i - 1] : grey ? (word & 0xFF0000FFu) | (word & 255u) * 0x010100u : word;
    }
    return pixels;
}

/// Loads the pixels as the document's picture; `pixels` holds width x height words.
inline void loadPicture(ImageDocument& document, const std::vector<Argb>& pixels, int width, int height) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(pixels.data());
    document.loadPixels(std::span<const std::uint8_t>(bytes, pixels.size() * sizeof(Argb)), width, height);
}

inline std::vector<Argb> pictureOf(const ImageDocument& document) {
    const PixelView view = document.currentPixels();
    return std::vector<Argb>(view.pixels, view.pixels + view.pixelCount());
}

}  // namespace orvane::test
