#include <algorithm>

#include "platform/graphics/brush_rows.h"

namespace orvane {
namespace {

// How far along the run a pixel lies is a fraction of 2^64: the overflow of unsigned numbers is the
// repetition of the run. Half a step is rounded up, so that no position falls short of its exact value and
// positions that are whole 65536ths are hit.

/// One direction of the rectangle: pixel i of a period adds 2 i + 1 half steps to the position.
struct Axis {
    std::uint64_t period = 1;  ///< pixels from one start of the run to the next
    std::uint64_t halfStep = 0;
    std::uint64_t first = 0;  ///< where in the period the row begins
    bool descending = false;

    [[nodiscard]] std::uint64_t positionAt(std::uint64_t pixel) const { return (2 * pixel + 1) * halfStep; }
};

Axis axisOf(std::int64_t offset, std::int64_t period) {
    constexpr std::uint64_t kHalf = std::uint64_t{1} << 63;
    const auto pixels = static_cast<std::uint64_t>(period);
    return {pixels, (kHalf - 1) / pixels + 1, static_cast<std::uint64_t>(positionInPeriod(offset, period))};
}

/// The colours between two, by the upper 16 bits of a position. Red and blue are computed in the halves of
/// one word, alpha and green in those of another: no sum leaves its half, for all of them are between the
/// ends.
class Ramp {
 public:
    Ramp(Argb from, Argb to)
        : redBlue_((halves(from) << 16) + kRounding),
          redBlueSlope_(halves(to) - halves(from)),
          alphaGreen_((halves(from >> 8) << 16) + kRounding),
          alphaGreenSlope_(halves(to >> 8) - halves(from >> 8)) {}

    [[nodiscard]] Argb at(std::uint64_t position) const {
        const std::uint64_t weight = position >> 48;
        return joined(redBlue_ + redBlueSlope_ * weight) | joined(alphaGreen_ + alphaGreenSlope_ * weight)
                                                               << 8;
    }

 private:
    static constexpr std::uint64_t kRounding = 0x0000800000008000u;

    static constexpr std::uint64_t halves(Argb colour) {
        return (std::uint64_t{colour & 0x00FF0000u} << 16) | (colour & 0xFFu);
    }
    static constexpr Argb joined(std::uint64_t sums) {
        return static_cast<Argb>((sums >> 32) & 0x00FF0000u) | static_cast<Argb>((sums >> 16) & 0xFFu);
    }

    std::uint64_t redBlue_, redBlueSlope_, alphaGreen_, alphaGreenSlope_;
};

/// Each period starts from its own exact position, which makes the repetitions equal to the last bit.
void writeRun(const Ramp& ramp, const Axis& axis, std::uint64_t start, std::size_t count, Argb* colours) {
    const std::uint64_t step = axis.descending ? 0 - 2 * axis.halfStep : 2 * axis.halfStep;
    std::uint64_t pixel = axis.first;
    while (count != 0) {
        const std::uint64_t untilWrap = axis.descending ? pixel + 1 : axis.period - pixel;
        const auto length = static_cast<std::size_t>(std::min<std::uint64_t>(count, untilWrap));
        const std::uint64_t position = start + axis.positionAt(pixel);
        for (std::size_t i = 0; i < length; ++i) colours[i] = ramp.at(position + i * step);
        colours += length;
        count -= length;
        pixel = axis.descending ? axis.period - 1 : 0;
    }
}

}  // namespace

void gradientRow(const GradientBrush& brush, int x, int y, std::size_t count, Argb* colours) noexcept {
    const IntRect& area = brush.area;
    if (area.isEmpty()) {
        std::fill_n(colours, count, brush.from);
        return;
    }
    const Ramp ramp(brush.from, brush.to);
    const std::int64_t fromLeft = std::int64_t{x} - area.x, fromTop = std::int64_t{y} - area.y;
    const std::int64_t width = area.width, height = area.height;
    if (brush.mode == GradientMode::Vertical) {
        const Axis down = axisOf(fromTop, height);
        std::fill_n(colours, count, ramp.at(down.positionAt(down.first)));
    } else if (brush.mode == GradientMode::Horizontal) {
        writeRun(ramp, axisOf(fromLeft, width), 0, count, colours);
    } else {
        // Width and height each account for half of the way from corner to corner.
        const bool backward = brush.mode == GradientMode::BackwardDiagonal;
        const Axis down = axisOf(fromTop, 2 * height);
        Axis across = axisOf(backward ? width - 1 - fromLeft : fromLeft, 2 * width);
        across.descending = backward;
        writeRun(ramp, across, down.positionAt(down.first), count, colours);
    }
}

}  // namespace orvane
