#include "filters/autocontrast.h"

#include <algorithm>

#include "filters/filter_frame.h"
#include "filters/kernels/count_levels.h"
#include "filters/kernels/map_channels.h"
#include "filters/level_bounds.h"

namespace orvane {

namespace {

/// Counts up to three per pixel, which may exceed 32 bits.
using JointCounts = std::array<std::uint64_t, 256>;

JointCounts jointCounts(const Argb* pixels, std::size_t count) {
    const ChannelCounts channels = countChannels(pixels, count);
    JointCounts joint;
    for (std::size_t level = 0; level < joint.size(); ++level) {
        joint[level] = std::uint64_t{channels.red[level]} + channels.green[level] + channels.blue[level];
    }
    return joint;
}

/// The first level, from `first` in steps of `step`, before which at least `threshold` counts lie; 0 when
/// there is none.
int boundFrom(const JointCounts& counts, std::uint64_t threshold, int first, int step) {
    std::uint64_t passed = 0;
    for (int level = first; level >= 0 && level <= 255; level += step) {
        if (passed >= threshold) return level;
        passed += counts[std::size_t(level)];
    }
    return 0;
}

}  // namespace

void autocontrast(ImageDocument& document) noexcept {
    applyPointOperation(document, [](const Argb* source, Argb* target, std::size_t count) {
        const JointCounts counts = jointCounts(source, count);
        const std::uint64_t threshold = fivePercentOf(std::uint64_t{count} * 4);
        const auto [low, range] =
            levelRange(boundFrom(counts, threshold, 0, 1), boundFrom(counts, threshold, 255, -1));
        // The product comes first and is divided last: not the rounding of multiplying by a reciprocal.
        const ByteTable table = makeByteTable([lower = low, size = range](int level) {
            return std::clamp(static_cast<int>((level - lower) * 255.0 / size), 0, 255);
        });
        mapChannels(source, target, count, {table, table, table});
    });
}

}  // namespace orvane
