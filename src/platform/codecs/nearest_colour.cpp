#include "platform/codecs/nearest_colour.h"

#include <algorithm>
#include <limits>

namespace orvane {
namespace {

constexpr int kCellsPerAxis = 32;
constexpr int kCellWidth = 8;

}  // namespace

NearestColour::NearestColour(std::span<const Argb> palette)
    : size_(palette.size()),
      bounds_(3 * kCellsPerAxis),
      cellStarts_(kCellsPerAxis * kCellsPerAxis * kCellsPerAxis),
      candidates_(1) {
    for (Argb colour : palette)
        entries_.push_back({int(redOf(colour)), int(greenOf(colour)), int(blueOf(colour))});
    for (std::size_t axis = 0; axis < 3; ++axis) {
        for (int cell = 0; cell < kCellsPerAxis; ++cell) {
            AxisBounds& bounds = bounds_[axis * kCellsPerAxis + std::size_t(cell)];
            const int low = cell * kCellWidth, high = low + kCellWidth - 1;
            for (std::size_t i = 0; i < size_; ++i) {
                const int value = entries_[i][axis];
                const int outside = std::max({low - value, value - high, 0});
                const int across = std::max(value - low, high - value);
                bounds.nearest[i] = kColourWeights[axis] * outside * outside;
                bounds.furthest[i] = kColourWeights[axis] * across * across;
            }
        }
    }
}

std::uint32_t NearestColour::collectCandidates(int redCell, int greenCell, int blueCell) {
    const AxisBounds& red = bounds_[std::size_t(redCell)];
    const AxisBounds& green = bounds_[std::size_t(kCellsPerAxis + greenCell)];
    const AxisBounds& blue = bounds_[std::size_t(2 * kCellsPerAxis + blueCell)];
    // No colour of the cell is further from its closest entry than this.
    int bound = std::numeric_limits<int>::max();
    for (std::size_t i = 0; i < size_; ++i) {
        bound = std::min(bound, red.furthest[i] + green.furthest[i] + blue.furthest[i]);
    }
    std::array<std::uint8_t, 256> close;
    std::size_t count = 0;
    for (std::size_t i = 0; i < size_; ++i) {
        close[count] = std::uint8_t(i);
        count += red.nearest[i] + green.nearest[i] + blue.nearest[i] <= bound ? 1 : 0;
    }
    const std::size_t start = candidates_.size();
    candidates_.push_back(std::uint8_t(count - 1));
    candidates_.insert(candidates_.end(), close.begin(), close.begin() + std::ptrdiff_t(count));
    return std::uint32_t(start);
}

int NearestColour::closestCandidate(std::uint32_t start, int red, int green, int blue) const {
    const std::uint8_t* candidate = candidates_.data() + start;
    const std::uint8_t* last = candidate + 1 + *candidate;
    int closest = 0, closestDistance = std::numeric_limits<int>::max();
    while (candidate++ != last) {
        const auto& entry = entries_[*candidate];
        const int dr = red - entry[0], dg = green - entry[1], db = blue - entry[2];
        const int distance =
            kColourWeights[0] * dr * dr + kColourWeights[1] * dg * dg + kColourWeights[2] * db * db;
        if (distance < closestDistance) {
            closestDistance = distance;
            closest = *candidate;
        }
    }
    return closest;
}

}  // namespace orvane
