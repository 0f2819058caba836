#pragma once

#include <orvane/pixels.h>

#include <algorithm>
#include <cstddef>

namespace orvane {

/// The light of a pixel: R + G + B if each is at least `level`, 0 otherwise.
[[nodiscard]] inline int lightOf(Argb pixel, int level) {
    const int red = int(redOf(pixel)), green = int(greenOf(pixel)), blue = int(blueOf(pixel));
    return std::min({red, green, blue}) >= level ? red + green + blue : 0;
}

/// How many pixels shine.
[[nodiscard]] inline std::size_t countLights(PixelView picture, int level) {
    std::size_t count = 0;
    for (int y = 0; y < picture.height; ++y) {
        const Argb* const row = picture.row(y);
        for (int x = 0; x < picture.width; ++x) count += lightOf(row[x], level) != 0;
    }
    return count;
}

}  // namespace orvane
