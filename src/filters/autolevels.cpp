#include "filters/autolevels.h"

#include <algorithm>

#include "filters/filter_frame.h"
#include "filters/kernels/count_levels.h"
#include "filters/kernels/map_channels.h"
#include "filters/level_bounds.h"

namespace orvane {

namespace {

/// The first level, from `first` in steps of `step`, before which at least `threshold` pixels lie. Level 0
/// stands for "not found yet", so it never is the answer of the upward search unless nothing is found.
int boundFrom(const LevelCounts& counts, std::uint64_t threshold, int first, int step) {
    std::uint64_t passed = 0;
    for (int level = first; level >= 0 && level <= 255; level += step) {
        if (passed >= threshold && level != 0) return level;
        passed += counts[std::size_t(level)];
    }
    return 0;
}

ByteTable stretched(const LevelCounts& counts, std::uint64_t threshold) {
    const auto [low, range] =
        levelRange(boundFrom(counts, threshold, 0, 1), boundFrom(counts, threshold, 255, -1));
    return makeByteTable([lower = low, scale = 1.0 / range](int level) {
        return std::clamp(static_cast<int>((level - lower) * scale * 255.0), 0, 255);
    });
}

}  // namespace

void autolevels(ImageDocument& document) noexcept {
    applyPointOperation(document, [](const Argb* source, Argb* target, std::size_t count) {
        const ChannelCounts counts = countChannels(source, count);
        const std::uint64_t threshold = fivePercentOf(count / 3);
        mapChannels(source, target, count,
                    {stretched(counts.red, threshold), stretched(counts.green, threshold),
                     stretched(counts.blue, threshold)});
    });
}

}  // namespace orvane
