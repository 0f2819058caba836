#pragma once

#include <cstddef>
#include <vector>

#include "vector.h"

namespace sample {

/// A raster of linear light, top row first.
struct Picture {
    int width = 0, height = 0;
    std::vector<Vec3> pixels;

    Picture(int w, int h) : width(w), height(h), pixels(std::size_t(w) * std::size_t(h)) {}
    [[nodiscard]] Vec3& at(int x, int y) {
        return pixels[std::size_t(y) * std::size_t(width) + std::size_t(x)];
    }
    [[nodiscard]] Vec3 at(int x, int y) const {
        return pixels[std::size_t(y) * std::size_t(width) + std::size_t(x)];
    }
    /// Between pixel centres, edges repeated.
    [[nodiscard]] Vec3 between(float x, float y) const {
        x = std::clamp(x, 0.0f, float(width) - 1.01f);
        y = std::clamp(y, 0.0f, float(height) - 1.01f);
        const int i = int(x), j = int(y);
        return mix(mix(at(i, j), at(i + 1, j), x - float(i)),
                   mix(at(i, j + 1), at(i + 1, j + 1), x - float(i)), y - float(j));
    }
};

/// The viewer, standing at the water's edge and looking along z. A wide lens of 35 mm on 36 x 24 mm film.
struct Camera {
    int width, height;
    float eye = 2.4f;  // metres above the water

    [[nodiscard]] float focal() const { return 0.97f * float(width); }
    [[nodiscard]] float horizon() const { return 0.565f * float(height); }
    /// The direction (z = 1) seen at a place of the picture.
    [[nodiscard]] Vec3 ray(float x, float y) const {
        return {(x - 0.5f * float(width)) / focal(), (horizon() - y) / focal(), 1.0f};
    }
};

}  // namespace sample
