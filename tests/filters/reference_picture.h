#pragma once

#include <orvane/pixels.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace orvane::reference {

/// A picture as the literal definitions of the filters read and write it.
struct Picture {
    int width = 0, height = 0;
    std::vector<Argb> pixels;

    [[nodiscard]] Argb& at(std::int64_t x, std::int64_t y) {
        return pixels[std::size_t(y) * std::size_t(width) + std::size_t(x)];
    }
    [[nodiscard]] Argb at(std::int64_t x, std::int64_t y) const {
        return pixels[std::size_t(y) * std::size_t(width) + std::size_t(x)];
    }
    [[nodiscard]] bool contains(std::int64_t x, std::int64_t y) const {
        return x >= 0 && x < width && y >= 0 && y < height;
    }
    /// Edge pixels repeat beyond the picture.
    [[nodiscard]] Argb clampedAt(std::int64_t x, std::int64_t y) const {
        return at(std::clamp<std::int64_t>(x, 0, width - 1), std::clamp<std::int64_t>(y, 0, height - 1));
    }
    [[nodiscard]] PixelView view() const { return {pixels.data(), width, height, width}; }
};

}  // namespace orvane::reference
