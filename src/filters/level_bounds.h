#pragma once

#include <algorithm>
#include <cstdint>

namespace orvane {

/// What the automatic level corrections share: the share of pixels that may be cut off at either end, and the
/// range between the two bounds that they find.

/// 5 % of a count, rounded to the nearest whole number, halves up.
constexpr std::uint64_t fivePercentOf(std::uint64_t count) { return (count * 5 + 50) / 100; }

struct LevelRange {
    int low;
    int size;  ///< at least 1
};

/// The range from `lower` (at most 254) to `upper`, which is raised above the lower bound when it is not.
constexpr LevelRange levelRange(int lower, int upper) {
    const int low = std::min(lower, 254);
    return {low, std::max(upper, low + 1) - low};
}

}  // namespace orvane
