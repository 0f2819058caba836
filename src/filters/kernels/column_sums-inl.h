// Sums of windows over columns and rows; compiled once per instruction set.
#if defined(ORVANE_FILTERS_KERNELS_COLUMN_SUMS_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef ORVANE_FILTERS_KERNELS_COLUMN_SUMS_INL_H
#undef ORVANE_FILTERS_KERNELS_COLUMN_SUMS_INL_H
#else
#define ORVANE_FILTERS_KERNELS_COLUMN_SUMS_INL_H
#endif

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "filters/kernels/byte_quotient-inl.h"
#include "filters/kernels/map_pixels-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {

constexpr std::size_t kChannels = 4;
/// Rows of lanes are this much longer than their pixels, so that the last vector needs no special case.
constexpr std::size_t kLaneSlack = 64;
/// Rows lie far apart, and some have left the nearest cache: so far ahead they are asked for.
constexpr std::size_t kPrefetchBytes = 2048;

/// Lanes for a row of pixels, four per pixel, and for some pixels before and after it.
template <class Lane>
class LaneRow {
 public:
    LaneRow(std::size_t width, std::size_t before, std::size_t after)
        : before_(before), width_(width), lanes_((before + width + after) * kChannels + kLaneSlack) {}

    /// The lanes of pixel x, which may lie before or after the row.
    [[nodiscard]] Lane* at(std::ptrdiff_t x) {
        return lanes_.data() + (static_cast<std::ptrdiff_t>(before_) + x) * std::ptrdiff_t{kChannels};
    }
    [[nodiscard]] const Lane* at(std::ptrdiff_t x) const { return const_cast<LaneRow*>(this)->at(x); }

    /// Repeats the first and the last pixel of the row before and after it.
    void repeatEdges() {
        const auto last = static_cast<std::ptrdiff_t>(width_) - 1;
        const auto after = static_cast<std::ptrdiff_t>((lanes_.size() - kLaneSlack) / kChannels - before_);
        for (auto x = -static_cast<std::ptrdiff_t>(before_); x < 0; ++x) copyPixel(at(0), at(x));
        for (auto x = last + 1; x < after; ++x) copyPixel(at(last), at(x));
    }

 private:
    static void copyPixel(const Lane* from, Lane* to) { std::memcpy(to, from, kChannels * sizeof(Lane)); }

    std::size_t before_, width_;
    std::vector<Lane> lanes_;
};

/// For every column of a picture the sum of the 2 * radius + 1 pixels around a row, per channel; pixels
/// beyond an edge repeat the edge pixel. Walks down the picture at two rows of reading per row, whatever the
/// radius. `Sum` is an unsigned integer of 16 bits (up to radius kMaxShortRadius) or 32 bits; sums wrap.
template <class Sum>
class ColumnSums {
    using Tag = hn::ScalableTag<Sum>;

 public:
    static constexpr int kMaxShortRadius = 128;

    ColumnSums(PixelView source, int radius)
        : source_(source),
          radius_(radius),
          reach_(std::min(radius, source.width - 1)),
          sums_(std::size_t(source.width), std::size_t(reach_) + 1, std::size_t(reach_)) {}

    /// Sets the sums around row 0.
    void start() { startFrom(nullptr); }

    /// Sets the sums around row 0 from those of a smaller radius, which spares adding their rows again.
    void startFrom(const ColumnSums* inner) {
        const int last = source_.height - 1;
        int added = 0;  // rows below row 0 that are in the sums already
        if (inner == nullptr) {
            addRows(source_.row(0), 1u);
        } else {
            std::memcpy(sums_.at(0), inner->sums_.at(0), laneCount() * sizeof(Sum));
            added = inner->radius_;
        }
        addRows(source_.row(0), static_cast<Sum>(radius_ - added));
        for (; added < std::min(radius_, last); ++added) addRows(source_.row(added + 1), 1u);
        addRows(source_.row(last), static_cast<Sum>(radius_ - added));
        sums_.repeatEdges();
    }

    /// Moves the sums from the row above y to row y.
    void moveTo(int y) {
        const int last = source_.height - 1;
        const int entering = radius_ > last - y ? last : y + radius_;
        const int leaving = y - 1 > radius_ ? y - 1 - radius_ : 0;
        if (entering == leaving) return;
        exchangeRows(source_.row(entering), source_.row(leaving));
        sums_.repeatEdges();
    }

    /// The distance beyond which further columns only repeat an edge: the radius or the picture's width.
    [[nodiscard]] int reach() const { return reach_; }
    /// The sums of column x, four channels; -reach() - 1 <= x < width + reach(), and readable a vector
    /// beyond.
    [[nodiscard]] HWY_INLINE const Sum* at(std::ptrdiff_t x) const { return sums_.at(x); }

    /// The sums of the columns around column 0, for each channel.
    void firstWindow(std::uint32_t (&total)[kChannels]) const {
        const auto edgeTimes = static_cast<std::uint32_t>(radius_ - reach_);
        for (std::size_t channel = 0; channel < kChannels; ++channel) {
            total[channel] = at(source_.width - 1)[channel] * edgeTimes +
                             at(0)[channel] * (static_cast<std::uint32_t>(radius_) + 1u);
        }
        for (int x = 1; x <= reach_; ++x) {
            for (std::size_t channel = 0; channel < kChannels; ++channel) total[channel] += at(x)[channel];
        }
    }

 private:
    [[nodiscard]] std::size_t laneCount() const { return std::size_t(source_.width) * kChannels; }

    void addRows(const Argb* row, Sum times) {
        if (times == 0) return;
        const auto* levels = reinterpret_cast<const std::uint8_t*>(row);
        Sum* sums = sums_.at(0);
        for (std::size_t i = 0; i < laneCount(); ++i) {
            sums[i] = static_cast<Sum>(sums[i] + static_cast<Sum>(levels[i] * times));
        }
    }

    void exchangeRows(const Argb* enteringRow, const Argb* leavingRow) {
        const auto* HWY_RESTRICT entering = reinterpret_cast<const std::uint8_t*>(enteringRow);
        const auto* HWY_RESTRICT leaving = reinterpret_cast<const std::uint8_t*>(leavingRow);
        Sum* HWY_RESTRICT sums = sums_.at(0);
        const auto exchange = [&](auto d, std::size_t i) HWY_ATTR {
            const hn::Rebind<std::uint8_t, decltype(d)> levels;
            const auto added = hn::PromoteTo(d, hn::LoadU(levels, entering + i));
            const auto removed = hn::PromoteTo(d, hn::LoadU(levels, leaving + i));
            hn::StoreU(hn::Add(hn::LoadU(d, sums + i), hn::Sub(added, removed)), d, sums + i);
        };
        const std::size_t count = laneCount();
        const Tag whole;
        const hn::CappedTag<Sum, kChannels> onePixel;
        std::size_t i = 0;
        for (; i + hn::Lanes(whole) <= count; i += hn::Lanes(whole)) {
            const std::size_t ahead = std::min(i + kPrefetchBytes, count - 1);
            hwy::Prefetch(entering + ahead);
            hwy::Prefetch(leaving + ahead);
            exchange(whole, i);
        }
        for (; i < count; i += hn::Lanes(onePixel)) exchange(onePixel, i);
    }

    PixelView source_;
    int radius_, reach_;
    LaneRow<Sum> sums_;
};

/// Adds up differences along a row of `laneCount` lanes, four per pixel, and hands the running sums on.
///
/// total: the sums of the first pixel, four channels; they wrap at 32 bits.
/// differenceAt(lane) -> SumVector: how much the sums from this lane on exceed those one pixel before.
/// finish(lane, SumVector sums): takes the sums from this lane on; the last vector may reach past the row.
template <class Differences, class Finish>
HWY_INLINE void addAlongRow(const std::uint32_t (&total)[kChannels], std::size_t laneCount,
                            const Differences& differenceAt, const Finish& finish) {
    const SumTag d;
#if HWY_TARGET == HWY_SCALAR
    std::uint32_t sums[kChannels];
    std::memcpy(sums, total, sizeof sums);
    for (std::size_t lane = 0; lane < laneCount; ++lane) {
        std::uint32_t& sum = sums[lane % kChannels];
        if (lane >= kChannels) sum += static_cast<std::uint32_t>(hn::GetLane(differenceAt(lane)));
        finish(lane, hn::Set(d, static_cast<std::int32_t>(sum)));
    }
#else
    constexpr std::size_t kMaxLanes = 16;
    const std::size_t lanes = hn::Lanes(d);
    alignas(64) std::int32_t scratch[kMaxLanes];
    const auto movedBy = [&](std::size_t distance) HWY_ATTR {
        for (std::size_t lane = 0; lane < lanes; ++lane) {
            scratch[lane] = static_cast<std::int32_t>((lane + lanes - distance) % lanes);
        }
        return hn::SetTableIndices(d, scratch);
    };
    const auto byOne = movedBy(kChannels), byTwo = movedBy(2 * kChannels % lanes);
    for (std::size_t lane = 0; lane < lanes; ++lane) {
        scratch[lane] = static_cast<std::int32_t>(lanes - kChannels + lane % kChannels);
    }
    const auto lastPixel = hn::SetTableIndices(d, scratch);
    const auto laneNumbers = hn::Iota(d, 0);
    const auto fromSecond = hn::Gt(laneNumbers, hn::Set(d, 3)),
               fromThird = hn::Gt(laneNumbers, hn::Set(d, 7));

    // The sums of the differences up to and including each pixel of the vector.
    const auto addedUp = [&](SumVector sums) HWY_ATTR {
        if (lanes > kChannels) {
            sums = hn::Add(sums, hn::IfThenElseZero(fromSecond, hn::TableLookupLanes(sums, byOne)));
        }
        if (lanes > 2 * kChannels) {
            sums = hn::Add(sums, hn::IfThenElseZero(fromThird, hn::TableLookupLanes(sums, byTwo)));
        }
        return sums;
    };

    // The first pixel has its sums already, so its difference is taken off beforehand.
    hn::StoreU(differenceAt(0), d, scratch);
    for (std::size_t lane = lanes; lane-- > 0;) {
        scratch[lane] = static_cast<std::int32_t>(total[lane % kChannels] -
                                                  static_cast<std::uint32_t>(scratch[lane % kChannels]));
    }
    auto before = hn::LoadU(d, scratch);
    for (std::size_t lane = 0; lane < laneCount; lane += lanes) {
        const auto sums = addedUp(differenceAt(lane));
        finish(lane, hn::Add(before, sums));
        before = hn::Add(before, hn::TableLookupLanes(sums, lastPixel));
    }
#endif
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#endif  // include guard per instruction set
