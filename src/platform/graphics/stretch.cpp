#include "platform/graphics/stretch.h"

#include <hwy/cache_control.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "platform/graphics/fill.h"
#include "platform/graphics/opaque_rows.h"
#include "platform/graphics/source_over.h"
#include "platform/graphics/stretch_axis.h"
#include "platform/graphics/stretch_sums.h"

namespace orvane {
namespace {

using opaque_rows::Neighbours;
using stretch_sums::RowSum;

// A tile is a range of destination columns whose tables and rows of sums stay in the nearest cache.
constexpr int kTargetTile = 512;
constexpr int kSourceTile = stretch_sums::kMaxRowLength;
constexpr int kPixelsAfterTail = 2;  // what a footprint may name beyond its first pixel and its whole ones

// Results from this size on leave the caches anyway before anyone reads them.
constexpr std::size_t kStreamedBytes = std::size_t{24} << 20;

// One call of drawStretched. `part` is the visible part of the destination, in pixels of the destination.
class Stretcher {
 public:
    Stretcher(const StretchSource& source, IntSize size, IntRect part, MutablePixelView target,
              StretchMode mode)
        : source_(source),
          part_(part),
          target_(target),
          over_(mode == StretchMode::Over && !source.isOpaque),
          xAxis_(source.pixels.width, size.width),
          yAxis_(source.pixels.height, size.height) {}

    void run() const {
        const auto isCopy = [](const StretchAxis& axis) { return axis.kind() == StretchAxis::Kind::Copy; };
        const auto shrinks = [](const StretchAxis& axis) { return axis.kind() == StretchAxis::Kind::Shrink; };
        if (isCopy(xAxis_) && isCopy(yAxis_)) {
            copyRows();
        } else if (source_.isOpaque && !shrinks(xAxis_) && !shrinks(yAxis_)) {
            enlargeOpaque();
        } else if (source_.isOpaque && xAxis_.halves() && yAxis_.halves()) {
            halveOpaque();
        } else if (xAxis_.whole() + 1 + kPixelsAfterTail > kSourceTile) {
            averageLongFootprints();
        } else {
            average();
        }
    }

 private:
    void copyRows() const {
        for (int y = 0; y < part_.height; ++y) {
            finishRow(source_.pixels.row(part_.y + y) + part_.x, y, 0, part_.width);
        }
    }

    // Puts finished pixels into row y of the target, from column x on.
    void finishRow(const Argb* pixels, int y, int x, int count) const {
        Argb* const to = target_.row(y) + x;
        if (over_) {
            sourceOver(pixels, to, to, std::size_t(count));
        } else if (pixels != to) {
            std::memcpy(to, pixels, std::size_t(count) * sizeof(Argb));
        }
    }

    void halveOpaque() const {
        for (int y = 0; y < part_.height; ++y) {
            const Argb* const upper = source_.pixels.row(2 * (part_.y + y)) + 2 * part_.x;
            opaque_rows::averageQuads(upper, upper + source_.pixels.stridePixels, std::size_t(part_.width),
                                      target_.row(y));
        }
    }

    void average() const {
        for (int x = 0; x < part_.width;) x += averageTile(x);
    }

    // Draws the columns from x on that fit one tile; their number.
    int averageTile(int x) const {
        Footprint columns[kTargetTile];
        alignas(64) float sums[(kSourceTile + kPixelsAfterTail) * 4], averages[kTargetTile * 4];
        Argb pixels[kTargetTile];

        const int start = xAxis_.at(part_.x + x).first;
        int count = 0, sourceCount = 0;
        for (; count < std::min(kTargetTile, part_.width - x); ++count) {
            Footprint column = xAxis_.at(part_.x + x + count);
            column.first -= start;
            const int end = column.first + xAxis_.whole() + 1 + kPixelsAfterTail;
            if (end > kSourceTile) break;
            columns[count] = column;
            sourceCount = std::min(end, source_.pixels.width - start);
        }
        std::fill_n(sums + sourceCount * 4, kPixelsAfterTail * 4, 0.0f);

        for (int y = 0; y < part_.height; ++y) {
            sumRows(y, start, sourceCount, sums);
            stretch_sums::sumColumns(sums, columns, xAxis_.whole(), std::size_t(count), averages);
            Argb* const finished = over_ ? pixels : target_.row(y) + x;
            resolve(averages, count, finished);
            if (over_) finishRow(pixels, y, x, count);
        }
        return count;
    }

    // The weighted sum of the source rows under row y, from source column `start` on.
    void sumRows(int y, int start, int count, float* sums) const {
        const Footprint f = yAxis_.at(part_.y + y);
        const int whole = yAxis_.whole();
        RowSum rows;
        rows.stridePixels = source_.pixels.stridePixels;
        int runStart = f.first + 1, runEnd = f.first + 1 + whole;
        const auto addEdge = [&](int row, float weight) {
            if (weight <= 0.0f) return;
            rows.edges[rows.edgeCount] = source_.pixels.row(row) + start;
            rows.weights[rows.edgeCount++] = weight;
        };
        if (f.head == 1.0f)
            --runStart;
        else
            addEdge(f.first, f.head);
        if (f.tail == 1.0f)
            ++runEnd;
        else
            addEdge(runEnd, f.tail);
        addEdge(f.first + whole + 2, f.beyond);
        rows.runLength = runEnd - runStart;
        rows.run = source_.pixels.row(rows.runLength > 0 ? runStart : f.first) + start;
        const int next = std::min(f.first + whole + 3, source_.pixels.height);
        rows.rowsAhead = source_.pixels.height - next;
        rows.ahead = source_.pixels.row(next) + start;
        if (source_.isOpaque) {
            stretch_sums::sumRowsOpaque(rows, std::size_t(count), sums);
        } else {
            stretch_sums::sumRowsWeightedByAlpha(rows, std::size_t(count), sums);
        }
    }

    void resolve(const float* sums, int count, Argb* pixels) const {
        const float scale = xAxis_.scale() * yAxis_.scale();
        if (source_.isOpaque) {
            stretch_sums::resolveOpaque(sums, scale, std::size_t(count), pixels);
        } else {
            stretch_sums::resolveWeightedByAlpha(sums, scale, std::size_t(count), pixels);
        }
    }

    // A footprint that outgrows a tile is summed piece by piece.
    void averageLongFootprints() const {
        alignas(64) float sums[kSourceTile * 4];
        for (int x = 0; x < part_.width; ++x) {
            const Footprint column = xAxis_.at(part_.x + x);
            const int tail = column.first + xAxis_.whole() + 1;
            const int end = std::min(tail + kPixelsAfterTail, source_.pixels.width);
            for (int y = 0; y < part_.height; ++y) {
                double totals[4] = {};
                for (int start = column.first; start < end; start += kSourceTile) {
                    const int count = std::min(kSourceTile, end - start);
                    sumRows(y, start, count, sums);
                    for (int i = 0; i < count; ++i) {
                        const int position = start + i;
                        const double weight = position == column.first ? column.head
                                              : position < tail        ? 1.0f
                                              : position == tail       ? column.tail
                                                                       : column.beyond;
                        for (int c = 0; c < 4; ++c) totals[c] += weight * double(sums[i * 4 + c]);
                    }
                }
                const float average[4] = {float(totals[0]), float(totals[1]), float(totals[2]),
                                          float(totals[3])};
                Argb pixel = 0;
                resolve(average, 1, &pixel);
                finishRow(&pixel, y, x, 1);
            }
        }
    }

    // Rows are stretched sideways first: two of them serve every destination row that falls between.
    void enlargeOpaque() const {
        for (int x = 0; x < part_.width; x += kTargetTile) {
            enlargeTile(x, std::min(kTargetTile, part_.width - x));
        }
    }

    static std::int16_t fixedWeight(float weight) {
        return std::int16_t(std::min(std::lround(weight * 32768.0f), 32767L));
    }

    void enlargeTile(int x, int count) const {
        Neighbours columns[kTargetTile];
        alignas(64) std::int16_t wide[(kTargetTile + 2) * 4], rows[2][kTargetTile * 4];

        const int start = xAxis_.at(part_.x + x).first;
        int last = start;
        for (int i = 0; i < count; ++i) {
            const Footprint column = xAxis_.at(part_.x + x + i);
            last = column.first;
            columns[i].first = column.first - start;
            std::fill_n(columns[i].weight, 4, fixedWeight(column.tail));
        }
        const int sourceCount = std::min(last + 2, source_.pixels.width) - start;
        std::fill_n(wide + sourceCount * 4, 4, std::int16_t{0});

        const bool streamed = target_.pixelCount() * sizeof(Argb) >= kStreamedBytes;
        int held[2] = {-1, -1};  // the source rows that rows[0] and rows[1] come from
        const auto stretchedRow = [&](int row) {
            const int slot = row & 1;
            if (held[slot] != row) {
                const int next = std::min(row + 1, source_.pixels.height - 1);
                opaque_rows::widenRow(source_.pixels.row(row) + start, source_.pixels.row(next) + start,
                                      std::size_t(sourceCount), wide);
                opaque_rows::interpolateRow(wide, columns, std::size_t(count), rows[slot]);
                held[slot] = row;
            }
            return rows[slot];
        };
        for (int y = 0; y < part_.height; ++y) {
            const Footprint f = yAxis_.at(part_.y + y);
            const std::int16_t weight = fixedWeight(f.tail);
            const std::int16_t* const upper = stretchedRow(f.first);
            const std::int16_t* const lower = weight > 0 ? stretchedRow(f.first + 1) : upper;
            opaque_rows::interpolateBetween(upper, lower, weight, std::size_t(count), target_.row(y) + x,
                                            streamed);
        }
        if (streamed) hwy::FlushStream();
    }

    StretchSource source_;
    IntRect part_;
    MutablePixelView target_;
    bool over_;
    StretchAxis xAxis_, yAxis_;
};

}  // namespace

void drawStretched(const StretchSource& source, IntRect destination, IntRect clip, MutablePixelView target,
                   StretchMode mode) noexcept {
    if (!source.pixels || source.pixels.width < 1 || source.pixels.height < 1 || !target) return;
    const IntRect inTarget = clippedTo({target.width, target.height}, destination);
    const IntRect visible = inTarget.intersected(clippedTo({target.width, target.height}, clip));
    if (visible.isEmpty()) return;
    // A visible pixel is less than the rectangle's length away from its corner, so this cannot overflow.
    const IntRect part{int(std::int64_t{visible.x} - destination.x),
                       int(std::int64_t{visible.y} - destination.y), visible.width, visible.height};
    Stretcher(source, {destination.width, destination.height}, part, subView(target, visible), mode).run();
}

void drawStretched(const StretchSource& source, IntRect destination, MutablePixelView target,
                   StretchMode mode) noexcept {
    drawStretched(source, destination, {0, 0, target.width, target.height}, target, mode);
}

}  // namespace orvane
