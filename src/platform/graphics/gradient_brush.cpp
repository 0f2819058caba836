#include <algorithm>

#include "platform/graphics/brush_rows.h"
#include "platform/graphics/colour_ramp.h"

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

/// One period is computed, in two pieces of which each starts from its own exact position; the rest repeats
/// it.
void writeRun(const GradientBrush& brush, const Axis& axis, std::uint64_t start, std::size_t count,
              Argb* colours) {
    const std::uint64_t step = axis.descending ? 0 - 2 * axis.halfStep : 2 * axis.halfStep;
    const std::uint64_t untilWrap = axis.descending ? axis.first + 1 : axis.period - axis.first;
    const auto length = static_cast<std::size_t>(std::min<std::uint64_t>(count, axis.period));
    const auto head = static_cast<std::size_t>(std::min<std::uint64_t>(length, untilWrap));
    const std::uint64_t firstAfterWrap = axis.descending ? axis.period - 1 : 0;
    colourRamp(brush.from, brush.to, start + axis.positionAt(axis.first), step, head, colours);
    if (head < length) {
        colourRamp(brush.from, brush.to, start + axis.positionAt(firstAfterWrap), step, length - head,
                   colours + head);
    }
    repeatRow(colours, length, count);
}

}  // namespace

void gradientRow(const GradientBrush& brush, int x, int y, std::size_t count, Argb* colours) noexcept {
    const IntRect& area = brush.area;
    if (area.isEmpty()) {
        std::fill_n(colours, count, brush.from);
        return;
    }
    const std::int64_t fromLeft = std::int64_t{x} - area.x, fromTop = std::int64_t{y} - area.y;
    const std::int64_t width = area.width, height = area.height;
    if (brush.mode == GradientMode::Vertical) {
        const Axis down = axisOf(fromTop, height);
        Argb colour = 0;
        colourRamp(brush.from, brush.to, down.positionAt(down.first), 0, 1, &colour);
        std::fill_n(colours, count, colour);
    } else if (brush.mode == GradientMode::Horizontal) {
        writeRun(brush, axisOf(fromLeft, width), 0, count, colours);
    } else {
        // Width and height each account for half of the way from corner to corner.
        const bool backward = brush.mode == GradientMode::BackwardDiagonal;
        const Axis down = axisOf(fromTop, 2 * height);
        Axis across = axisOf(backward ? width - 1 - fromLeft : fromLeft, 2 * width);
        across.descending = backward;
        writeRun(brush, across, down.positionAt(down.first), count, colours);
    }
}

}  // namespace orvane
