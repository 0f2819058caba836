#pragma once

#include <orvane/pixels.h>

#include <algorithm>
#include <cstdint>
#include <vector>

/// Order statistics of square windows by their definition alone. The edge pixels' repetitions are counted,
/// not walked, so that a radius may be as large as it likes.
namespace orvane::reference {

/// How often each coordinate 0 .. length - 1 occurs in position - radius .. position + radius, clamped.
inline std::vector<std::uint64_t> occurrences(int length, int position, int radius) {
    std::vector<std::uint64_t> counts(std::size_t(length), 0);
    for (int i = 0; i < length; ++i) {
        const std::int64_t distance = std::abs(std::int64_t{i} - position);
        counts[std::size_t(i)] = distance <= radius ? 1 : 0;
    }
    counts.front() += std::uint64_t(std::max<std::int64_t>(std::int64_t{radius} - position, 0));
    counts.back() += std::uint64_t(std::max<std::int64_t>(std::int64_t{position} + radius - (length - 1), 0));
    return counts;
}

/// Of each channel of the window around (x, y), the value of rank pick(window size), counted from 0.
template <class Pick>
Argb windowRank(PixelView source, int x, int y, int radius, Pick&& pick) {
    const auto columns = occurrences(source.width, x, radius), rows = occurrences(source.height, y, radius);
    const std::uint64_t side = 2 * std::uint64_t(radius) + 1;
    const std::uint64_t rank = pick(side * side);
    unsigned channels[3];
    for (int channel = 0; channel < 3; ++channel) {
        std::vector<std::uint64_t> histogram(256, 0);
        for (int j = 0; j < source.height; ++j) {
            if (rows[std::size_t(j)] == 0) continue;
            for (int i = 0; i < source.width; ++i) {
                const unsigned value = (source.at(i, j) >> (8 * channel)) & 255u;
                histogram[value] += columns[std::size_t(i)] * rows[std::size_t(j)];
            }
        }
        std::uint64_t smaller = 0;
        unsigned value = 0;
        while (smaller + histogram[value] <= rank) smaller += histogram[value++];
        channels[channel] = value;
    }
    return makeOpaque(channels[2], channels[1], channels[0]);
}

template <class Pick>
std::vector<Argb> rankFilter(const std::vector<Argb>& picture, int width, int height, int radius,
                             Pick&& pick) {
    const PixelView source{picture.data(), width, height, width};
    std::vector<Argb> result;
    result.reserve(picture.size());
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) result.push_back(windowRank(source, x, y, radius, pick));
    }
    return result;
}

inline std::uint64_t lowestRank(std::uint64_t) { return 0; }
inline std::uint64_t highestRank(std::uint64_t size) { return size - 1; }
inline std::uint64_t middleRank(std::uint64_t size) { return size / 2; }

}  // namespace orvane::reference
