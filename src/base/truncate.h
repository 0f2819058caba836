#pragma once

#include <cstdint>
#include <limits>

namespace orvane {

/// Conversion toward zero that stays defined for every double: out-of-range values saturate, NaN gives 0.
constexpr int truncateToInt(double value) {
    if (!(value == value)) return 0;
    if (value >= 2147483647.0) return std::numeric_limits<int>::max();
    if (value <= -2147483648.0) return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

/// The same for window and image coordinates, held within +-10^9 so that sums of two of them stay defined.
constexpr int truncateToCoordinate(double value) {
    constexpr int kLimit = 1'000'000'000;
    const int truncated = truncateToInt(value);
    return truncated > kLimit ? kLimit : truncated < -kLimit ? -kLimit : truncated;
}

constexpr int clampToByte(int value) { return value < 0 ? 0 : value > 255 ? 255 : value; }

/// Signed 32-bit sums that wrap instead of overflowing.
constexpr std::int32_t wrappingAdd(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
constexpr std::int32_t wrappingMultiply(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

}  // namespace orvane
