#pragma once

#include <orvane/pixels.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "filters/kernels/light_source.h"

namespace orvane {

/// The lights of a picture column by column, which is the order in which they are added up.
class LightColumns {
 public:
    /// May throw std::bad_alloc.
    void take(PixelView source, int level) {
        height_ = std::size_t(source.height);
        lights_.resize(source.pixelCount());
        constexpr int kRowsAtOnce = 32;  // a cache line of each column
        for (int top = 0; top < source.height; top += kRowsAtOnce) {
            const int bottom = std::min(source.height, top + kRowsAtOnce);
            for (int x = 0; x < source.width; ++x) {
                for (int y = top; y < bottom; ++y) {
                    lights_[orderOf(x, y)] = static_cast<std::uint16_t>(lightOf(source.at(x, y), level));
                }
            }
        }
    }
    [[nodiscard]] bool isEmpty() const { return lights_.empty(); }

    [[nodiscard]] const std::uint16_t* column(int x) const { return &lights_[orderOf(x, 0)]; }
    /// All columns, one after the other, and where a pixel is among them.
    [[nodiscard]] const std::vector<std::uint16_t>& inOrder() const { return lights_; }
    [[nodiscard]] std::size_t orderOf(int x, int y) const {
        return std::size_t(x) * height_ + std::size_t(y);
    }

 private:
    std::size_t height_ = 0;
    std::vector<std::uint16_t> lights_;
};

}  // namespace orvane
