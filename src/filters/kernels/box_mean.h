#pragma once

#include <cstdint>

namespace orvane {

/// Beyond this radius the sum of a square window no longer fits 31 bits.
constexpr int kMaxMeanRadius = 1450;

/// sum / 9, 25 or 49 as a product of 16-bit numbers, of which the upper half is shifted on; exact for all
/// sums of so many bytes.
struct ShortReciprocal {
    std::uint32_t factor;
    int shift;

    [[nodiscard]] constexpr std::uint32_t divided(std::uint32_t sum) const {
        return ((sum * factor) >> 16) >> shift;
    }
    [[nodiscard]] constexpr bool isExactFor(std::uint32_t divisor) const {
        for (std::uint32_t sum = 0; sum <= 255 * divisor; ++sum) {
            if (divided(sum) != sum / divisor) return false;
        }
        return true;
    }
};

constexpr ShortReciprocal reciprocalOf(int radius) {
    return radius == 1   ? ShortReciprocal{7282, 0}
           : radius == 2 ? ShortReciprocal{10486, 2}
                         : ShortReciprocal{21400, 4};
}
static_assert(reciprocalOf(1).isExactFor(9) && reciprocalOf(2).isExactFor(25) &&
              reciprocalOf(3).isExactFor(49));

}  // namespace orvane
