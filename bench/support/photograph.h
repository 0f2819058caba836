#pragma once

#include <orvane/pixels.h>

#include <cmath>
#include <vector>

#include "base/random_stream.h"

namespace orvane::bench {

/// Soft colour gradients, some edges and a little noise, opaque: the statistics of a photograph.
inline std::vector<Argb> photograph(int width, int height) {
    std::vector<Argb> pixels(std::size_t(width) * std::size_t(height));
    RandomStream random(7u);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const bool bright = (x / 97 + y / 61) % 5 == 0;
            const auto channel = [&](double fx, double fy) {
                const double wave = 118 + 90 * std::sin(x * fx) * std::cos(y * fy) + random.next() % 16;
                return unsigned(bright ? wave + 30 : wave);
            };
            const unsigned red = channel(0.0041, 0.0023), green = channel(0.0017, 0.0052);
            pixels[std::size_t(y) * std::size_t(width) + std::size_t(x)] =
                makeOpaque(red, green, channel(0.0029, 0.0031));
        }
    }
    return pixels;
}

}  // namespace orvane::bench
