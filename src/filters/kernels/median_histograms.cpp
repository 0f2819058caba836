#include "filters/kernels/median_histograms.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "filters/kernels/scratch.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/median_histograms.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

// A window's histogram moves along a row by gaining a column and losing one; each column's own histogram
// moves down by gaining a pixel and losing one. Both have two levels, of 16 segments and 16 values each:
//
//     coarse[k]       how many values lie in segments 0 .. k
//     fine[s][k]      how many values of segment s are its values 0 .. k
//
// Counts are cumulative, so that the segment and the value of the median are simply how many counts do not
// exceed its rank. The window keeps its coarse counts current at every pixel, but a segment's fine counts
// only when the median falls into it: then they catch up with the columns since the last time, or are summed
// anew.

HWY_BEFORE_NAMESPACE();
namespace orvane::HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

constexpr std::size_t kBins = 16, kChannels = 3;

/// kSteps[v] is what one more value v, of sixteen, adds to cumulative counts.
template <class Count>
struct Steps {
    alignas(32) Count of[kBins][kBins] = {};
    constexpr Steps() {
        for (std::size_t v = 0; v < kBins; ++v) {
            for (std::size_t k = v; k < kBins; ++k) of[v][k] = 1;
        }
    }
};
template <class Count>
constexpr Steps<Count> kSteps;

/// Sixteen counts as one vector or, where vectors are shorter, as several.
template <class T>
using Tag = hn::CappedTag<T, kBins>;

template <class Count>
HWY_INLINE void addAndRemove(Count* counts, const Count* added, const Count* removed) {
    const Tag<Count> d;
    for (std::size_t i = 0; i < kBins; i += hn::Lanes(d)) {
        const auto sum = hn::Add(hn::LoadU(d, counts + i), hn::LoadU(d, added + i));
        hn::StoreU(hn::Sub(sum, hn::LoadU(d, removed + i)), d, counts + i);
    }
}

template <class Count>
HWY_INLINE void addStep(Count* counts, const Count* added) {
    const Tag<Count> d;
    for (std::size_t i = 0; i < kBins; i += hn::Lanes(d)) {
        hn::StoreU(hn::Add(hn::LoadU(d, counts + i), hn::LoadU(d, added + i)), d, counts + i);
    }
}

template <class Count>
HWY_INLINE void removeStep(Count* counts, const Count* removed) {
    const Tag<Count> d;
    for (std::size_t i = 0; i < kBins; i += hn::Lanes(d)) {
        hn::StoreU(hn::Sub(hn::LoadU(d, counts + i), hn::LoadU(d, removed + i)), d, counts + i);
    }
}

/// Count holds the counts of a column of the window, Sum those of the whole window.
template <class Count, class Sum>
class HistogramStrip {
 public:
    /// Medians of columns first .. first + count - 1.
    HistogramStrip(PixelView source, int radius, int first, int count)
        : source_(source),
          radius_(radius),
          first_(first),
          count_(count),
          begin_(int(std::max<std::int64_t>(std::int64_t{first} - radius, 0))),
          columns_(int(std::min<std::int64_t>(std::int64_t{first} + count + radius, source.width)) - begin_),
          rank_(Sum((2 * Sum(radius) + 1) * (2 * Sum(radius) + 1) / 2)),
          coarse_(std::size_t(columns_) * kChannels * kBins),
          fine_(std::size_t(columns_) * kChannels * kBins * kBins) {}

    void run(MutablePixelView target) {
        startColumns();
        medianRow(target.row(0) + first_);
        for (int y = 1; y < source_.height; ++y) {
            moveColumnsDown(rowAt(std::int64_t{y} - 1 - radius_), rowAt(std::int64_t{y} + radius_));
            medianRow(target.row(y) + first_);
        }
    }

 private:
    using Wide = std::uint64_t;

    [[nodiscard]] const Argb* rowAt(std::int64_t y) const {
        return source_.row(int(std::clamp<std::int64_t>(y, 0, source_.height - 1))) + begin_;
    }
    /// The column of the histograms that image column x, or the nearest one, has.
    [[nodiscard]] HWY_INLINE std::size_t columnAt(std::int64_t x) const {
        return std::size_t(std::clamp<std::int64_t>(x - begin_, 0, columns_ - 1));
    }
    [[nodiscard]] HWY_INLINE Count* coarseOf(std::size_t column, std::size_t channel) {
        return coarse_.data() + (column * kChannels + channel) * kBins;
    }
    [[nodiscard]] HWY_INLINE Count* fineOf(std::size_t column, std::size_t channel, std::size_t segment) {
        return fine_.data() + ((channel * kBins + segment) * std::size_t(columns_) + column) * kBins;
    }

    void startColumns() {
        std::fill_n(coarse_.data(), std::size_t(columns_) * kChannels * kBins, Count{0});
        std::fill_n(fine_.data(), std::size_t(columns_) * kChannels * kBins * kBins, Count{0});
        // The window around row 0 has that row 1 + radius times, and the last one as often as it lies below.
        const std::int64_t last = source_.height - 1;
        for (std::int64_t y = 0; y <= std::min<std::int64_t>(radius_, last); ++y) {
            const Wide above = y == 0 ? Wide(radius_) : 0;
            const Wide below = y == last ? Wide(std::max<std::int64_t>(radius_ - last, 0)) : 0;
            addRow(rowAt(y), Count(1 + above + below));
        }
    }

    void addRow(const Argb* row, Count times) {
        for (std::size_t column = 0; column < std::size_t(columns_); ++column) {
            for (std::size_t channel = 0; channel < kChannels; ++channel) {
                const std::size_t value = (row[column] >> (8 * channel)) & 255u;
                const std::size_t segment = value / kBins;
                Count* const coarse = coarseOf(column, channel);
                Count* const fine = fineOf(column, channel, segment);
                for (std::size_t k = segment; k < kBins; ++k) coarse[k] = Count(coarse[k] + times);
                for (std::size_t k = value % kBins; k < kBins; ++k) fine[k] = Count(fine[k] + times);
            }
        }
    }

    void moveColumnsDown(const Argb* removed, const Argb* added) {
        if (removed == added) return;
        const auto& steps = kSteps<Count>.of;
        for (std::size_t column = 0; column < std::size_t(columns_); ++column) {
            const Argb out = removed[column], in = added[column];
            for (std::size_t channel = 0; channel < kChannels; ++channel) {
                const std::size_t o = (out >> (8 * channel)) & 255u, i = (in >> (8 * channel)) & 255u;
                addAndRemove(coarseOf(column, channel), steps[i / kBins], steps[o / kBins]);
                removeStep(fineOf(column, channel, o / kBins), steps[o % kBins]);
                addStep(fineOf(column, channel, i / kBins), steps[i % kBins]);
            }
        }
    }

    /// The fine counts of the window are those of the pixel at `position`, or never were.
    static constexpr std::int64_t kNever = -1;

    struct WindowCounts {
        // One zero before the coarse counts: what lies below segment 0.
        alignas(64) Sum coarse[kChannels][2 * kBins];
        alignas(64) Sum fine[kChannels][kBins][kBins];
        std::int64_t position[kChannels][kBins];
    };
    static constexpr std::size_t kCoarseStart = kBins;

    void medianRow(Argb* target) {
        WindowCounts& window = window_;
        for (std::size_t channel = 0; channel < kChannels; ++channel) {
            std::fill_n(window.position[channel], kBins, kNever);
            window.coarse[channel][kCoarseStart - 1] = 0;
            sumWindow(window.coarse[channel] + kCoarseStart, coarseOf(0, channel), kChannels * kBins, first_);
        }
        for (int x = first_; x < first_ + count_; ++x) {
            if (x > first_) {
                const std::size_t gained = columnAt(std::int64_t{x} + radius_);
                const std::size_t lost = columnAt(std::int64_t{x} - radius_ - 1);
                for (std::size_t channel = 0; channel < kChannels; ++channel) {
                    moveCounts(window.coarse[channel] + kCoarseStart, coarseOf(gained, channel),
                               coarseOf(lost, channel));
                }
            }
            Argb median = 0xFF000000u;
            for (std::size_t channel = 0; channel < kChannels; ++channel) {
                median |= Argb(medianOf(window, channel, x)) << (8 * channel);
            }
            target[x - first_] = median;
        }
    }

    HWY_INLINE std::size_t medianOf(WindowCounts& window, std::size_t channel, int x) {
        const Sum* const coarse = window.coarse[channel] + kCoarseStart;
        const std::size_t segment = countsUpTo(coarse, rank_);
        Sum* const fine = window.fine[channel][segment];
        catchUp(fine, window.position[channel][segment], channel, segment, x);
        const Sum rankInSegment = Sum(rank_ - *(coarse + segment - 1));
        return segment * kBins + countsUpTo(fine, rankInSegment);
    }

    /// How many of the sixteen counts are at most `rank`.
    static HWY_INLINE std::size_t countsUpTo(const Sum* counts, Sum rank) {
        const Tag<Sum> d;
        std::size_t greater = 0;
        for (std::size_t i = 0; i < kBins; i += hn::Lanes(d)) {
            greater += hn::CountTrue(d, hn::Lt(hn::Set(d, rank), hn::Load(d, counts + i)));
        }
        return kBins - greater;
    }

    HWY_INLINE void catchUp(Sum* fine, std::int64_t& position, std::size_t channel, std::size_t segment,
                            int x) {
        const std::int64_t behind = std::int64_t{x} - position;
        if (position == kNever || 2 * behind > columnsUnderWindow(x)) {
            sumWindow(fine, fineOf(0, channel, segment), kBins, x);
        } else {
            const Count* const columns = fineOf(0, channel, segment);
            for (std::int64_t at = position + 1; at <= x; ++at) {
                moveCounts(fine, columns + columnAt(at + radius_) * kBins,
                           columns + columnAt(at - radius_ - 1) * kBins);
            }
        }
        position = x;
    }

    [[nodiscard]] HWY_INLINE std::int64_t columnsUnderWindow(std::int64_t x) const {
        return std::int64_t(columnAt(x + radius_) - columnAt(x - radius_)) + 1;
    }

    static HWY_INLINE void moveCounts(Sum* counts, const Count* gained, const Count* lost) {
        const Tag<Sum> d;
        const hn::Rebind<Count, Tag<Sum>> narrow;
        for (std::size_t i = 0; i < kBins; i += hn::Lanes(d)) {
            const auto more = hn::PromoteTo(d, hn::LoadU(narrow, gained + i));
            const auto less = hn::PromoteTo(d, hn::LoadU(narrow, lost + i));
            hn::Store(hn::Sub(hn::Add(hn::Load(d, counts + i), more), less), d, counts + i);
        }
    }

    /// Sums sixteen counts of each column under the window around x, those of edge columns as often as the
    /// window has them.
    void sumWindow(Sum* counts, const Count* columns, std::size_t columnStride, std::int64_t x) {
        const Tag<Sum> d;
        const hn::Rebind<Count, Tag<Sum>> narrow;
        const std::size_t from = columnAt(x - radius_), to = columnAt(x + radius_);
        for (std::size_t i = 0; i < kBins; i += hn::Lanes(d)) {
            auto sum = hn::Zero(d);
            for (std::size_t column = from; column <= to; ++column) {
                sum = hn::Add(sum, hn::PromoteTo(d, hn::LoadU(narrow, columns + column * columnStride + i)));
            }
            hn::Store(sum, d, counts + i);
        }
        const std::int64_t right = source_.width - 1;
        addTimes(counts, columns + from * columnStride, std::max<std::int64_t>(radius_ - x, 0));
        addTimes(counts, columns + to * columnStride, std::max<std::int64_t>(x + radius_ - right, 0));
    }

    static void addTimes(Sum* counts, const Count* column, std::int64_t times) {
        if (times == 0) return;
        for (std::size_t k = 0; k < kBins; ++k) counts[k] = Sum(counts[k] + Sum(times) * column[k]);
    }

    PixelView source_;
    std::int64_t radius_;
    int first_, count_;
    int begin_, columns_;  // the image columns that have histograms
    Sum rank_;
    WindowCounts window_;
    Scratch<Count> coarse_, fine_;
};

// A strip's columns should stay in the second-level cache; but a strip must not be narrow against what lies
// under its windows on either side.
constexpr std::int64_t kStripBytes = std::int64_t{832} << 10;
constexpr std::int64_t kLeastStripColumns = 256;

template <class Count, class Sum>
void medianOfStrips(PixelView source, MutablePixelView target, int radius) {
    constexpr auto kColumnBytes = std::int64_t(kChannels * (kBins + 1) * kBins * sizeof(Count));
    const std::int64_t r = radius, near = kStripBytes / kColumnBytes - 2 * r;
    const int strip = int(std::min<std::int64_t>(std::max({near, 2 * r, kLeastStripColumns}), source.width));
    for (int x = 0; x < source.width; x += strip) {
        HistogramStrip<Count, Sum>(source, radius, x, std::min(strip, source.width - x)).run(target);
    }
}

}  // namespace

void MedianByHistograms(PixelView source, MutablePixelView target, int radius) {
    // A column of the window counts 2 * radius + 1 values, the window the square of that.
    if (radius <= 127) {
        medianOfStrips<std::uint8_t, std::uint16_t>(source, target, radius);
    } else if (radius <= 32767) {
        medianOfStrips<std::uint16_t, std::uint32_t>(source, target, radius);
    } else {
        medianOfStrips<std::uint32_t, std::uint64_t>(source, target, radius);
    }
}

}  // namespace orvane::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(MedianByHistograms);

void medianByHistograms(PixelView source, MutablePixelView target, int radius) {
    HWY_DYNAMIC_DISPATCH(MedianByHistograms)(source, target, radius);
}

}  // namespace orvane
#endif  // HWY_ONCE
