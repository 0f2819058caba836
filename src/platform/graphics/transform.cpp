#include "platform/graphics/transform.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "platform/graphics/fill.h"
#include "platform/graphics/sample_rows.h"
#include "platform/graphics/source_over.h"
#include "platform/graphics/stretch_sums.h"

namespace orvane {
namespace {

using sample_rows::Line;

// Columns are drawn in strips, so that the source pixels between two rows of a strip are still in the nearest
// cache for the next row, however steeply the rows run through the source.
constexpr int kStrip = 256;

// How many rows before they are needed pixels are fetched.
constexpr int kRowsAhead = 8;

constexpr double kFarthest = 1 << 30;

std::int64_t fixedPoint(double value) noexcept {
    return std::int64_t(std::floor(std::ldexp(value, Line::kFractionBits)));
}

// Source positions of the destination's pixels, and their steps along its rows and columns. Sums of the same
// numbers give every pixel its position, whichever part is drawn.
class Positions {
 public:
    explicit Positions(const AffineMap& toSource) noexcept
        : stepX_{fixedPoint(toSource.xx), fixedPoint(toSource.yx)},
          stepY_{fixedPoint(toSource.xy), fixedPoint(toSource.yy)} {
        const PlanePoint first = toSource({0.5, 0.5});
        // Half a weight's unit rounds the weights; half a pixel leads from areas to centres.
        const double shift = std::ldexp(1.0, -Line::kWeightBits - 1) - 0.5;
        first_[0] = fixedPoint(first.x + shift);
        first_[1] = fixedPoint(first.y + shift);
    }

    [[nodiscard]] Line lineFrom(int x, int y) const noexcept {
        return {position(0, x, y), position(1, x, y), stepX_[0], stepX_[1]};
    }

 private:
    // A sum that fits may have parts that do not: they wrap, twice.
    [[nodiscard]] std::int64_t position(int axis, int x, int y) const noexcept {
        const auto wrapping = [](std::int64_t value) { return std::uint64_t(value); };
        return std::int64_t(wrapping(first_[axis]) + wrapping(x) * wrapping(stepX_[axis]) +
                            wrapping(y) * wrapping(stepY_[axis]));
    }

    std::int64_t first_[2], stepX_[2], stepY_[2];
};

// Whether fixed point can hold the positions of all pixels up to the rectangle's far corner, and of the one
// after. Also false for a map that is not finite.
bool isNear(const AffineMap& toSource, const IntRect& part) noexcept {
    const double right = double(part.x) + part.width, bottom = double(part.y) + part.height;
    for (const double x : {0.0, right}) {
        for (const double y : {0.0, bottom}) {
            const PlanePoint p = toSource({x, y});
            if (!(std::fabs(p.x) < kFarthest && std::fabs(p.y) < kFarthest)) return false;
        }
    }
    return std::fabs(toSource.xx) < kFarthest && std::fabs(toSource.yx) < kFarthest;
}

void drawTranslucentRow(const StretchSource& source, const Line& line, const Line& ahead, int count,
                        Argb* target, StretchMode mode) noexcept {
    alignas(64) float sums[kStrip * 4];
    Argb pixels[kStrip];
    const auto length = std::size_t(count);
    sample_rows::sampleWeightedByAlpha(source.pixels, line, ahead, length, sums);
    stretch_sums::resolveWeightedByAlpha(sums, 1.0f, length, pixels);
    if (mode == StretchMode::Over) {
        sourceOver(pixels, target, target, length);
    } else {
        std::copy_n(pixels, length, target);
    }
}

}  // namespace

void drawTransformed(const StretchSource& source, const AffineMap& toSource, IntRect destination,
                     IntRect clip, MutablePixelView target, StretchMode mode) noexcept {
    if (!source.pixels || source.pixels.width < 1 || source.pixels.height < 1 || !target) return;
    const IntSize size{target.width, target.height};
    const IntRect visible = clippedTo(size, destination).intersected(clippedTo(size, clip));
    if (visible.isEmpty()) return;
    // A visible pixel is less than the rectangle's length away from its corner, so this cannot overflow.
    const IntRect part{int(std::int64_t{visible.x} - destination.x),
                       int(std::int64_t{visible.y} - destination.y), visible.width, visible.height};
    if (!isNear(toSource, part)) return;

    const Positions positions(toSource);
    for (int x = 0; x < part.width; x += kStrip) {
        const int count = std::min(kStrip, part.width - x);
        for (int y = 0; y < part.height; ++y) {
            const Line line = positions.lineFrom(part.x + x, part.y + y);
            const Line ahead = positions.lineFrom(part.x + x, part.y + y + kRowsAhead);
            Argb* const row = target.row(visible.y + y) + visible.x + x;
            if (source.isOpaque) {
                sample_rows::sampleOpaque(source.pixels, line, ahead, std::size_t(count), row);
            } else {
                drawTranslucentRow(source, line, ahead, count, row, mode);
            }
        }
    }
}

}  // namespace orvane
