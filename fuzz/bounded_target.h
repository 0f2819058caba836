#pragma once

#include <cstdint>
#include <vector>

#include "platform/image_codecs.h"

namespace orvane::fuzz {

/// Takes pictures of up to 4 megapixels and refuses larger ones, so that a search spends its time on decoding
/// and not on clearing memory. The vector ends where the picture does: a sanitizer sees any pixel beyond.
class BoundedTarget final : public DecodeTarget {
 public:
    static constexpr std::uint64_t kMaxPixels = std::uint64_t{1} << 22;

    MutablePixelView allocate(int width, int height) override {
        if (!isAllowedImageSize(width, height)) __builtin_trap();
        refused_ = std::uint64_t(width) * std::uint64_t(height) > kMaxPixels;
        if (refused_) return {};
        pixels_.assign(std::size_t(width) * std::size_t(height), Argb{0});
        picture_ = {pixels_.data(), width, height, width};
        return picture_;
    }
    /// What was decoded; a null view when nothing was.
    [[nodiscard]] PixelView picture() const { return picture_; }
    /// Whether a picture was only too large for the search.
    [[nodiscard]] bool wasRefused() const { return refused_; }

 private:
    std::vector<Argb> pixels_;
    MutablePixelView picture_;
    bool refused_ = false;
};

}  // namespace orvane::fuzz
