#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace orvane {

/// How much of a source's light (R + G + B) arrives at a distance. Distances are cut to whole pixels, and
/// what lies farther than the radius, or at distance 0, counts as distance 0 with weight 0.
class GlowFalloff {
 public:
    /// For pictures of this size. Takes a step per pixel of the picture within reach, and less than a second
    /// for what the radius has beyond. May throw std::bad_alloc.
    GlowFalloff(int radius, int intensity, int width, int height);

    /// The farthest columns and rows that light reaches within the picture.
    [[nodiscard]] int reachX() const { return reachX_; }
    [[nodiscard]] int reachY() const { return reachY_; }
    /// The distances of the columns 0 .. reachX() to the right (or left) and dy rows down (or up).
    [[nodiscard]] const std::uint32_t* distances(int dy) const {
        return distances_.data() + std::size_t(dy) * (std::size_t(reachX_) + 1);
    }
    /// The last column with light dy rows away; with dy = 0 column 0 counts too.
    [[nodiscard]] int rowReach(int dy) const { return rowReaches_[std::size_t(dy)]; }

    /// Whether all distances up to the radius have the same weight.
    [[nodiscard]] bool isEven() const { return isEven_; }
    [[nodiscard]] double weight(std::uint32_t distance) const { return weights_[distance]; }
    /// The same in single precision.
    [[nodiscard]] float roughWeight(std::uint32_t distance) const { return roughWeights_[distance]; }

 private:
    bool isEven_;
    int reachX_, reachY_;
    std::vector<double> weights_;
    std::vector<float> roughWeights_;
    std::vector<std::uint32_t> distances_;
    std::vector<int> rowReaches_;
};

}  // namespace orvane
