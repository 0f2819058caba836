#pragma once

#include <orvane/pixels.h>

#include <array>
#include <cstdint>
#include <vector>

namespace orvane {

/// Sums of blue, green and red, in this order.
using ChannelSums = std::array<std::int64_t, 3>;

constexpr void addTo(ChannelSums& sums, Argb pixel, std::int64_t times = 1) {
    sums[0] += blueOf(pixel) * times;
    sums[1] += greenOf(pixel) * times;
    sums[2] += redOf(pixel) * times;
}

/// A line of pixels that goes on without end at both sides with its first and its last pixel. The sum of any
/// stretch of it costs the same.
class EndlessLine {
 public:
    /// `count` pixels from `first` on, `stride` words apart; at least one.
    EndlessLine(const Argb* first, std::ptrdiff_t stride, int count);

    /// The sum of the pixels from one place to another, both included; none when `to` comes before `from`.
    [[nodiscard]] ChannelSums sum(std::int64_t from, std::int64_t to) const;

 private:
    [[nodiscard]] ChannelSums sumBefore(std::int64_t place) const;

    std::vector<ChannelSums> before_;  // [i] is the sum of the first i pixels
    Argb first_, last_;
};

enum class Slope { Falling, Rising };

/// Sums along the diagonals of a picture, where they start: the pixels (x + i, y + i) or, rising,
/// (x - i, y + i) for i = -radius..radius, with each coordinate held within the picture.
/// Memory: four borders.
class DiagonalSums {
 public:
    DiagonalSums(PixelView source, int radius, Slope slope);

    /// The sum about a pixel of the upper border or of the border where the diagonals come in: the left one
    /// when falling, the right one when rising. Cost: the pixels from there along the diagonal to the end of
    /// the window or of the picture.
    [[nodiscard]] ChannelSums at(int x, int y) const;

 private:
    PixelView source_;
    std::int64_t radius_;
    int step_;  // x per row: 1 falling, -1 rising
    EndlessLine top_, bottom_, entry_, exit_;
};

}  // namespace orvane
