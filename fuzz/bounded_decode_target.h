#pragma once

#include <cstdint>
#include <vector>

#include "platform/image_codecs.h"

namespace orvane {

/// A destination for fuzzed pictures: it refuses large ones, since writing them would only cost time.
class BoundedDecodeTarget : public DecodeTarget {
 public:
    MutablePixelView allocate(int width, int height) override {
        if (std::uint64_t(width) * std::uint64_t(height) > kMaxPixels) return {};
        pixels_.resize(std::size_t(width) * std::size_t(height));
        return {pixels_.data(), width, height, width};
    }

 private:
    static constexpr std::uint64_t kMaxPixels = 1u << 22;
    std::vector<Argb> pixels_;
};

}  // namespace orvane
