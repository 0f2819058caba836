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

/// of[v] is what one more value v, of sixteen, adds to cumulative counts.
template <class Count>
struct Steps {
    alignas(64) Count of[kBins][kBins] = {};
    constexpr Steps() {
        for (std::size_t v = 0; v < kBins; ++v) {
            for (std::size_t k = v; k < kBins; ++k) of[v][k] = 1;
        }
    }
};
template <class Count>
constexpr Steps<Count> kSteps;

template <class T>
using Tag = hn::CappedTag<T, kBins>;

/// Sixteen counts in one vector or, where vectors are shorter, in several.
template <class Sum>
class SixteenCounts {
 public:
    static SixteenCounts zero() {
        SixteenCounts counts;
        for (std::size_t i = 0; i < kParts; ++i) counts.parts_[i] = hn::Zero(Tag<Sum>());
        return counts;
    }
    static HWY_INLINE SixteenCounts load(const Sum* from) {
        SixteenCounts counts;
        for (std::size_t i = 0; i < kParts; ++i) counts.parts_[i] = hn::LoadU(Tag<Sum>(), from + i * kLanes);
        return counts;
    }
    HWY_INLINE void store(Sum* to) const {
        for (std::size_t i = 0; i < kParts; ++i) hn::StoreU(parts_[i], Tag<Sum>(), to + i * kLanes);
    }
    template <class Count>
    HWY_INLINE void add(const Count* gained) {
        for (std::size_t i = 0; i < kParts; ++i) {
            parts_[i] = hn::Add(parts_[i], widened(gained + i * kLanes));
        }
    }
    HWY_INLINE void remove(const Sum* lost) {
        for (std::size_t i = 0; i < kParts; ++i) parts_[i] = hn::Sub(parts_[i], widened(lost + i * kLanes));
    }
    template <class Count>
    HWY_INLINE void addAndRemove(const Count* gained, const Count* lost) {
        for (std::size_t i = 0; i < kParts; ++i) {
            const auto more = hn::Add(parts_[i], widened(gained + i * kLanes));
            parts_[i] = hn::Sub(more, widened(lost + i * kLanes));
        }
    }
    /// How many of the counts are at most `rank`.
    HWY_INLINE std::size_t countUpTo(Sum rank) const {
        const Tag<Sum> d;
        std::size_t greater = 0;
        for (std::size_t i = 0; i < kParts; ++i) {
            greater += hn::CountTrue(d, hn::Lt(hn::Set(d, rank), parts_[i]));
        }
        return kBins - greater;
    }

 private:
    static constexpr std::size_t kLanes = hn::MaxLanes(Tag<Sum>()), kParts = kBins / kLanes;

    static HWY_INLINE hn::Vec<Tag<Sum>> widened(const Sum* counts) { return hn::LoadU(Tag<Sum>(), counts); }
    template <class Count>
    static HWY_INLINE hn::Vec<Tag<Sum>> widened(const Count* counts) {
        return hn::PromoteTo(Tag<Sum>(), hn::LoadU(hn::Rebind<Count, Tag<Sum>>(), counts));
    }

    hn::Vec<Tag<Sum>> parts_[kParts];
};

/// Count holds the counts of a column of the window, Sum those of the whole window.
template <class Count, class Sum>
class HistogramStrip {
 public:
    /// Medians of columns first .. first + count - 1.
    HistogramStrip(PixelView source, int radius, int first, int count)
        : source_(source),
          radius_(radius),
          first_(first),
          count_(std::size_t(count)),
          begin_(int(std::max<std::int64_t>(std::int64_t{first} - radius, 0))),
          columns_(std::size_t(std::min<std::int64_t>(std::int64_t{first} + count + radius, source.width)) -
                   std::size_t(begin_)),
          rank_(Sum((2 * Sum(radius) + 1) * (2 * Sum(radius) + 1) / 2)),
          coarse_(columns_ * kChannels * kBins),
          fine_(columns_ * kChannels * kBins * kBins),
          gained_(count_),
          lost_(count_) {
        for (std::size_t i = 0; i < count_; ++i) {
            const std::int64_t x = std::int64_t{first} + std::int64_t(i);
            gained_[i] = columnAt(x + radius_) * kBins;
            lost_[i] = columnAt(x - radius_ - 1) * kBins;
        }
    }

    void run(MutablePixelView target) {
        startColumns();
        for (int y = 0; y < source_.height; ++y) {
            if (y > 0) {
                moveColumnsDown(rowAt(std::int64_t{y} - 1 - radius_), rowAt(std::int64_t{y} + radius_));
            }
            Argb* const row = target.row(y) + first_;
            std::fill_n(row, count_, 0xFF000000u);
            for (std::size_t channel = 0; channel < kChannels; ++channel) {
                // The bytes of a word are its channels: blue, green, red.
                medianRow(channel, reinterpret_cast<std::uint8_t*>(row) + channel);
            }
        }
    }

 private:
    [[nodiscard]] const Argb* rowAt(std::int64_t y) const {
        return source_.row(int(std::clamp<std::int64_t>(y, 0, source_.height - 1))) + begin_;
    }
    /// The column with the histogram of image column x, or of the nearest one that there is.
    [[nodiscard]] std::size_t columnAt(std::int64_t x) const {
        return std::size_t(std::clamp<std::int64_t>(x - begin_, 0, std::int64_t(columns_) - 1));
    }
    /// The counts of column 0; those of the next column follow.
    [[nodiscard]] Count* coarseOf(std::size_t channel) { return coarse_.data() + channel * columns_ * kBins; }
    [[nodiscard]] Count* fineOf(std::size_t channel, std::size_t segment) {
        return fine_.data() + (channel * kBins + segment) * columns_ * kBins;
    }

    void startColumns() {
        std::fill_n(coarse_.data(), columns_ * kChannels * kBins, Count{0});
        std::fill_n(fine_.data(), columns_ * kChannels * kBins * kBins, Count{0});
        // The window around row 0 has that row 1 + radius times, and the last one as often as it lies below.
        const std::int64_t last = source_.height - 1;
        for (std::int64_t y = 0; y <= std::min<std::int64_t>(radius_, last); ++y) {
            const std::int64_t above = y == 0 ? radius_ : 0;
            const std::int64_t below = y == last ? std::max<std::int64_t>(radius_ - last, 0) : 0;
            addRow(rowAt(y), Count(1 + above + below));
        }
    }

    void addRow(const Argb* row, Count times) {
        for (std::size_t column = 0; column < columns_; ++column) {
            for (std::size_t channel = 0; channel < kChannels; ++channel) {
                const std::size_t value = (row[column] >> (8 * channel)) & 255u;
                const std::size_t segment = value / kBins;
                Count* const coarse = coarseOf(channel) + column * kBins;
                Count* const fine = fineOf(channel, segment) + column * kBins;
                for (std::size_t k = segment; k < kBins; ++k) coarse[k] = Count(coarse[k] + times);
                for (std::size_t k = value % kBins; k < kBins; ++k) fine[k] = Count(fine[k] + times);
            }
        }
    }

    void moveColumnsDown(const Argb* removed, const Argb* added) {
        if (removed == added) return;
        using Counts = SixteenCounts<Count>;
        const Count(*const steps)[kBins] = kSteps<Count>.of;
        for (std::size_t channel = 0; channel < kChannels; ++channel) {
            const auto* const out = reinterpret_cast<const std::uint8_t*>(removed) + channel;
            const auto* const in = reinterpret_cast<const std::uint8_t*>(added) + channel;
            Count* coarse = coarseOf(channel);
            Count* const fine = fineOf(channel, 0);
            const std::size_t segmentCounts = columns_ * kBins;
            for (std::size_t column = 0; column < columns_; ++column) {
                const std::size_t o = out[column * sizeof(Argb)], i = in[column * sizeof(Argb)];
                Counts counts = Counts::load(coarse);
                counts.addAndRemove(steps[i / kBins], steps[o / kBins]);
                counts.store(coarse);
                coarse += kBins;
                Count* const from = fine + (o / kBins) * segmentCounts + column * kBins;
                Count* const to = fine + (i / kBins) * segmentCounts + column * kBins;
                counts = Counts::load(from);
                counts.remove(steps[o % kBins]);
                counts.store(from);
                counts = Counts::load(to);
                counts.add(steps[i % kBins]);
                counts.store(to);
            }
        }
    }

    static constexpr std::size_t kNever = ~std::size_t{0};

    /// Medians of one channel of the row whose columns are current, to every fourth byte of the target.
    void medianRow(std::size_t channel, std::uint8_t* target) {
        using Counts = SixteenCounts<Sum>;
        // The counts of the segments that the median is not in now, and the pixel that they were left at.
        alignas(64) Sum leftCounts[kBins][kBins];
        std::size_t leftAt[kBins];
        std::fill_n(leftAt, kBins, kNever);
        alignas(64) Sum below[2 * kBins];  // the coarse counts with a zero before them
        below[kBins - 1] = 0;

        const Count* const coarseColumns = coarseOf(channel);
        Counts coarse = windowCounts(coarseColumns, 0), fine = Counts::zero();
        std::size_t segment = kBins;  // none yet
        const Count* fineColumns = nullptr;
        for (std::size_t x = 0; x < count_; ++x) {
            if (x > 0) coarse.addAndRemove(coarseColumns + gained_[x], coarseColumns + lost_[x]);
            coarse.store(below + kBins);
            const std::size_t newSegment = coarse.countUpTo(rank_);
            if (HWY_LIKELY(newSegment == segment)) {
                fine.addAndRemove(fineColumns + gained_[x], fineColumns + lost_[x]);
            } else {
                if (segment < kBins) {
                    fine.store(leftCounts[segment]);
                    leftAt[segment] = x - 1;
                }
                segment = newSegment;
                fineColumns = fineOf(channel, segment);
                fine = caughtUp(leftCounts[segment], leftAt[segment], fineColumns, x);
            }
            const Sum rankInSegment = Sum(rank_ - below[kBins + segment - 1]);
            target[x * sizeof(Argb)] = std::uint8_t(segment * kBins + fine.countUpTo(rankInSegment));
        }
    }

    /// Sixteen counts of the window around pixel x: those of an earlier pixel carried on, or summed anew
    /// where that is less work.
    SixteenCounts<Sum> caughtUp(const Sum* left, std::size_t leftAt, const Count* columns, std::size_t x) {
        const std::size_t windowColumns =
            std::size_t(columnAt(imageX(x) + radius_) - columnAt(imageX(x) - radius_)) + 1;
        if (leftAt == kNever || 2 * (x - leftAt) > windowColumns) return windowCounts(columns, x);
        auto counts = SixteenCounts<Sum>::load(left);
        for (std::size_t at = leftAt + 1; at <= x; ++at) {
            counts.addAndRemove(columns + gained_[at], columns + lost_[at]);
        }
        return counts;
    }

    [[nodiscard]] std::int64_t imageX(std::size_t x) const { return first_ + std::int64_t(x); }

    /// The sum of sixteen counts over the columns under the window around pixel x, edge columns as often as
    /// the window has them.
    SixteenCounts<Sum> windowCounts(const Count* columns, std::size_t x) {
        const std::int64_t left = imageX(x) - radius_, right = imageX(x) + radius_;
        const Count* const from = columns + columnAt(left) * kBins;
        const Count* const to = columns + columnAt(right) * kBins;
        auto counts = SixteenCounts<Sum>::zero();
        for (const Count* column = from; column <= to; column += kBins) counts.add(column);
        const std::int64_t beyond = source_.width - 1;
        if (left >= 0 && right <= beyond) return counts;
        const Sum before = Sum(std::max<std::int64_t>(-left, 0));
        const Sum after = Sum(std::max<std::int64_t>(right - beyond, 0));
        alignas(64) Sum sums[kBins];
        counts.store(sums);
        for (std::size_t k = 0; k < kBins; ++k) sums[k] = Sum(sums[k] + before * from[k] + after * to[k]);
        return SixteenCounts<Sum>::load(sums);
    }

    PixelView source_;
    std::int64_t radius_;
    int first_;
    std::size_t count_;
    int begin_;  // the image columns from here on have histograms
    std::size_t columns_;
    Sum rank_;
    Scratch<Count> coarse_, fine_;
    Scratch<std::size_t> gained_, lost_;  // what the window around a pixel has more than the one before
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
