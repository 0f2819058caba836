#pragma once

#include <orvane/pixels.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <utility>
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

/// Makes the pixels the document's only picture; `pixels` holds width x height words. Any size will do, also
/// those that can only come from scaling.
inline void loadPicture(ImageDocument& document, const std::vector<Argb>& pixels, int width, int height) {
    PixelSurface surface = PixelSurface::create(width, height);
    std::copy(pixels.begin(), pixels.end(), surface.overwrite().pixels);
    document.clearDocument();
    document.history.start(std::move(surface));
    document.view.showLoadedImage(document.size());
}

inline std::vector<Argb> pictureOf(const ImageDocument& document) {
    const PixelView view = document.currentPixels();
    return std::vector<Argb>(view.pixels, view.pixels + view.pixelCount());
}

}  // namespace orvane::test
