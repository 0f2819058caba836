#pragma once

#include <cstdint>

namespace orvane {

/// Division of a sum of `count` bytes by their count, by one multiplication of 16-bit lanes: the mean is
/// ((sum + bias) * factor) >> 16 >> shift, rounded down. Exact for every sum of an odd count of 3..257 bytes.
struct MeanDivisor {
    /// The largest count whose sums fit 16 bits.
    static constexpr int kMaxCount = 257;

    constexpr explicit MeanDivisor(int count) {
        while ((2 << shift) <= count) ++shift;
        const std::uint64_t one = std::uint64_t{1} << (16 + shift), n = static_cast<unsigned>(count);
        const std::uint64_t above = (one + n - 1) / n;
        // A factor rounded up is exact while its excess stays below one part of the largest sum; where it
        // does not, a factor rounded down with a sum raised by one is.
        const bool roundUp = 255 * n * (above * n - one) < one;
        factor = static_cast<std::uint16_t>(roundUp ? above : one / n);
        bias = roundUp ? 0 : 1;
    }

    std::uint16_t factor = 0, bias = 0;
    int shift = 0;
};

}  // namespace orvane
