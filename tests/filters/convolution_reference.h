#pragma once

#include <orvane/pixels.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "filters/reference_picture.h"

/// The convolution filters by their definitions alone, one window after the other. They define the results;
/// the filters must give the same bytes.
namespace orvane::reference {

using Weights = std::vector<std::int32_t>;
constexpr int kShifts[] = {16, 8, 0};

/// Calls newPixel(x, y) for every pixel.
template <class NewPixel>
std::vector<Argb> eachPixelOf(const Picture& picture, NewPixel&& newPixel) {
    std::vector<Argb> result;
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) result.push_back(newPixel(x, y));
    }
    return result;
}

/// Sum divided by the sum of the weights unless that is 0, as 32-bit numbers.
inline unsigned dividedByte(std::uint32_t sum, std::uint32_t weightSum) {
    std::int64_t value = static_cast<std::int32_t>(sum);
    if (weightSum != 0) value /= static_cast<std::int32_t>(weightSum);
    return static_cast<unsigned>(std::clamp<std::int64_t>(value, 0, 255));
}

/// weights: n x n, column by column from the left, each from the top.
inline Argb convolveAt(const Picture& picture, int x, int y, const Weights& weights, int n) {
    if (n <= 0) return 0xFF000000u;
    const int h = (n - 1) / 2;
    std::uint32_t sums[3] = {}, weightSum = 0;
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < n; ++j) {
            const auto weight = static_cast<std::uint32_t>(weights[std::size_t(i * n + j)]);
            const Argb p = picture.clampedAt(x - h + i, y - h + j);
            weightSum += weight;
            for (int c = 0; c < 3; ++c) sums[c] += ((p >> kShifts[c]) & 255u) * weight;
        }
    }
    return makeOpaque(dividedByte(sums[0], weightSum), dividedByte(sums[1], weightSum),
                      dividedByte(sums[2], weightSum));
}

inline std::vector<Argb> convolve(const Picture& picture, const Weights& weights, int n) {
    return eachPixelOf(picture, [&](int x, int y) { return convolveAt(picture, x, y, weights, n); });
}

inline int localRange(const Picture& picture, int x, int y, int radius) {
    int smallest = 255;
    for (int shift : kShifts) {
        int minimum = 255, maximum = 0;
        for (int dx = -radius; dx <= radius; ++dx) {
            for (int dy = -radius; dy <= radius; ++dy) {
                const int level = (picture.clampedAt(x + dx, y + dy) >> shift) & 255u;
                minimum = std::min(minimum, level);
                maximum = std::max(maximum, level);
            }
        }
        smallest = std::min(smallest, maximum - minimum);
    }
    return smallest;
}

inline Weights boxKernel(int radius) {
    return Weights(std::size_t(2 * radius + 1) * std::size_t(2 * radius + 1), 1);
}

inline std::vector<Argb> blur(const Picture& picture, int radius) {
    return convolve(picture, boxKernel(radius), 2 * radius + 1);
}

inline std::vector<Argb> average(const Picture& picture, int centreWeight, int radius) {
    if (radius < 0) return convolve(picture, {}, 2 * radius + 1);
    Weights weights = boxKernel(radius);
    weights[std::size_t(radius * (2 * radius + 2))] = centreWeight;
    return convolve(picture, weights, 2 * radius + 1);
}

inline Weights gaussianKernel(int radius, int fallOff) {
    Weights weights;
    for (int dx = -radius; dx <= radius; ++dx) {
        for (int dy = -radius; dy <= radius; ++dy) {
            const std::int64_t d = std::max(std::abs(dx), std::abs(dy)), r = radius;
            weights.push_back(static_cast<std::int32_t>((r * r * fallOff + 1) / (d * d * fallOff + 1)));
        }
    }
    return weights;
}

inline std::vector<Argb> gaussianBlur(const Picture& picture, int radius, int fallOff) {
    return convolve(picture, gaussianKernel(radius, fallOff), 2 * radius + 1);
}

inline std::vector<Argb> smartBlur(const Picture& picture, int radius, int level) {
    const Weights weights = boxKernel(radius);
    return eachPixelOf(picture, [&](int x, int y) {
        return localRange(picture, x, y, radius) <= level ? convolveAt(picture, x, y, weights, 2 * radius + 1)
                                                          : picture.clampedAt(x, y);
    });
}

/// A 3 x 3 kernel as it looks, turned into its order of weights.
inline Weights asSeen(const std::array<std::int32_t, 9>& rows) {
    return {rows[0], rows[3], rows[6], rows[1], rows[4], rows[7], rows[2], rows[5], rows[8]};
}

inline Weights sharpenKernel() { return asSeen({1, 0, 1, 0, -8, 0, 1, 0, 1}); }

inline std::vector<Argb> sharpen(const Picture& picture) { return convolve(picture, sharpenKernel(), 3); }

inline std::vector<Argb> sharpenEdge(const Picture& picture, int level) {
    return eachPixelOf(picture, [&](int x, int y) {
        return localRange(picture, x, y, 1) >= level ? convolveAt(picture, x, y, sharpenKernel(), 3)
                                                     : picture.clampedAt(x, y);
    });
}

inline std::vector<Argb> laplas(const Picture& picture) {
    return convolve(picture, asSeen({0, -1, 0, -1, 4, -1, 0, -1, 0}), 3);
}

inline std::vector<Argb> sobel(const Picture& picture, int type) {
    switch (type) {
        case 0:
            return convolve(picture, asSeen({-1, 0, 1, -2, 0, 2, -1, 0, 1}), 3);
        case 1:
            return convolve(picture, asSeen({1, 0, -1, 2, 0, -2, 1, 0, -1}), 3);
        case 2:
            return convolve(picture, asSeen({-1, -2, -1, 0, 0, 0, 1, 2, 1}), 3);
        default:
            return convolve(picture, asSeen({1, 2, 1, 0, 0, 0, -1, -2, -1}), 3);
    }
}

inline std::vector<Argb> emboss(const Picture& picture, int distance, int direction) {
    const int n = distance;
    const int offsets[8][2] = {{0, -n}, {n, -n}, {n, 0}, {n, n}, {0, n}, {-n, n}, {-n, 0}, {-n, -n}};
    const auto& offset = offsets[direction >= 0 && direction <= 6 ? direction : 7];
    return eachPixelOf(picture, [&](int x, int y) {
        const Argb p = picture.clampedAt(x, y), q = picture.clampedAt(x + offset[0], y + offset[1]);
        const auto relief = [&](int shift) {
            return static_cast<unsigned>((int((p >> shift) & 255u) - int((q >> shift) & 255u) + 255) / 2);
        };
        return makeOpaque(relief(16), relief(8), relief(0));
    });
}

inline std::vector<Argb> userEffect(const Picture& picture, const Weights& weights) {
    return convolve(picture, weights, weights.size() == 9 ? 3 : 5);
}

}  // namespace orvane::reference
