#include "filters/kernels/ring_convolution.h"

#include <algorithm>
#include <vector>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/ring_convolution.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/box_sums-inl.h"

// A kernel of rings is a pile of squares: with weights a, b, c from the centre outward it is
//
//     (a - b) x the centre  +  (b - c) x the 3 x 3 square  +  c x the 5 x 5 square,
//
// and the sums over squares cost the same whatever their size. Rings of equal weight need no square between
// them. Along a row all squares share one running sum, since running sums add up.

#ifndef ORVANE_FILTERS_KERNELS_RING_SQUARE
#define ORVANE_FILTERS_KERNELS_RING_SQUARE
namespace orvane {

/// One square of the pile.
struct RingSquare {
    int radius;
    std::int32_t weight;
};

}  // namespace orvane
#endif

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

/// The column sums of all squares of a pile, from the smallest one on.
template <class Sum>
class PileOfColumns {
 public:
    PileOfColumns(PixelView source, const std::vector<RingSquare>& squares) : squares_(squares) {
        columns_.reserve(squares.size());
        for (const RingSquare& square : squares) {
            columns_.emplace_back(source, square.radius);
            columns_.back().startFrom(columns_.size() > 1 ? &columns_[columns_.size() - 2] : nullptr);
        }
    }

    void moveTo(int y) {
        for (ColumnSums<Sum>& columns : columns_) columns.moveTo(y);
    }

    /// The weighted sums of the row's first pixel.
    void firstWindow(std::uint32_t (&total)[kChannels]) const {
        std::fill_n(total, kChannels, 0u);
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            std::uint32_t square[kChannels];
            columns_[i].firstWindow(square);
            for (std::size_t channel = 0; channel < kChannels; ++channel) {
                total[channel] += square[channel] * static_cast<std::uint32_t>(squares_[i].weight);
            }
        }
    }

    [[nodiscard]] const ColumnSums<Sum>& operator[](std::size_t square) const { return columns_[square]; }

 private:
    const std::vector<RingSquare>& squares_;
    std::vector<ColumnSums<Sum>> columns_;
};

/// What a square adds to the running sum from one pixel to the next: the columns that enter less those that
/// leave, times its weight.
template <class Sum>
struct Exchange {
    const Sum* entering;
    const Sum* leaving;
    std::int32_t weight;
};

/// Column sums and products in 32 bits, for every pile.
class WideRows {
 public:
    WideRows(PixelView source, const std::vector<RingSquare>& squares) : pile_(source, squares) {
        for (std::size_t i = 0; i < squares.size(); ++i) {
            exchanges_.push_back(
                {pile_[i].at(pile_[i].reach()), pile_[i].at(-1 - pile_[i].reach()), squares[i].weight});
        }
    }

    PileOfColumns<std::uint32_t>& pile() { return pile_; }
    void prepareRow() {}

    [[nodiscard]] HWY_INLINE SumVector differenceAt(std::size_t lane) const {
        const SumTag d;
        const hn::RebindToUnsigned<SumTag> unsignedSums;
        auto difference = hn::Zero(d);
        for (const auto& exchange : exchanges_) {
            const auto entering = hn::LoadU(unsignedSums, exchange.entering + lane);
            const auto leaving = hn::LoadU(unsignedSums, exchange.leaving + lane);
            difference = hn::Add(
                difference, hn::Mul(hn::BitCast(d, hn::Sub(entering, leaving)), hn::Set(d, exchange.weight)));
        }
        return difference;
    }

 private:
    PileOfColumns<std::uint32_t> pile_;
    std::vector<Exchange<std::uint32_t>> exchanges_;
};

#if HWY_TARGET != HWY_SCALAR

/// Column sums in 16 bits, whose differences are multiplied in pairs of squares. For squares up to
/// kMaxRadius and few weights beyond 16 bits.
class ShortRows {
 public:
    static constexpr int kMaxRadius = 63;  // differences of column sums stay within 16 bits

    ShortRows(PixelView source, const std::vector<RingSquare>& squares)
        : pile_(source, squares),
          laneCount_(std::size_t(source.width) * kChannels),
          differences_(std::size_t(source.width), 0, 0) {
        for (std::size_t i = 0; i < squares.size(); ++i) {
            // A weight beyond 16 bits counts as several smaller ones.
            for (std::int32_t rest = squares[i].weight; rest != 0;) {
                const std::int32_t part = std::clamp(rest, -kMaxWeight, kMaxWeight);
                addExchange({shorts(pile_[i].at(pile_[i].reach())),
                             shorts(pile_[i].at(-1 - pile_[i].reach())), part});
                rest -= part;
            }
        }
        if (first_.entering != nullptr) addExchange({first_.entering, first_.entering, 0});
    }

    [[nodiscard]] static bool canHold(const std::vector<RingSquare>& squares) {
        std::int64_t parts = 0;
        for (const RingSquare& square : squares) {
            if (square.radius > kMaxRadius) return false;
            parts += 1 + std::abs(std::int64_t{square.weight}) / kMaxWeight;
        }
        return parts < 2 * static_cast<std::int64_t>(squares.size()) + 4;
    }

    PileOfColumns<std::uint16_t>& pile() { return pile_; }

    /// Computes the differences of the whole row, in order along the row.
    HWY_INLINE void prepareRow() {
        const SumTag d;
        const Shorts shorts;
        const std::size_t half = hn::Lanes(d);
        alignas(64) std::int32_t order[16];
        for (std::size_t lane = 0; lane < half; ++lane) order[lane] = std::int32_t(orderOf(lane, half));
        const auto alternating = hn::SetTableIndices(d, order);
        std::int32_t* HWY_RESTRICT differences = differences_.at(0);
        for (std::size_t lane = 0; lane < laneCount_; lane += 2 * half) {
            // Of each 128-bit block the lower and the upper half: even and odd pixels.
            auto even = hn::Zero(d), evenRest = even, odd = even, oddRest = even;
            for (const Pair& pair : pairs_) {
                const auto first = hn::Sub(hn::LoadU(shorts, pair.first.entering + lane),
                                           hn::LoadU(shorts, pair.first.leaving + lane));
                const auto second = hn::Sub(hn::LoadU(shorts, pair.second.entering + lane),
                                            hn::LoadU(shorts, pair.second.leaving + lane));
                const auto weights = hn::BitCast(shorts, hn::Set(d, pair.weights));
                even = hn::ReorderWidenMulAccumulate(d, hn::InterleaveLower(shorts, first, second), weights,
                                                     even, evenRest);
                odd = hn::ReorderWidenMulAccumulate(d, hn::InterleaveUpper(shorts, first, second), weights,
                                                    odd, oddRest);
            }
            even = hn::RearrangeToOddPlusEven(even, evenRest);
            odd = hn::RearrangeToOddPlusEven(odd, oddRest);
            if (half == kChannels) {
                hn::StoreU(even, d, differences + lane);
                hn::StoreU(odd, d, differences + lane + half);
            } else {
                hn::StoreU(hn::TableLookupLanes(hn::ConcatLowerLower(d, odd, even), alternating), d,
                           differences + lane);
                hn::StoreU(hn::TableLookupLanes(hn::ConcatUpperUpper(d, odd, even), alternating), d,
                           differences + lane + half);
            }
        }
    }

    [[nodiscard]] HWY_INLINE SumVector differenceAt(std::size_t lane) const {
        return hn::LoadU(SumTag(), differences_.at(0) + lane);
    }

 private:
    using Shorts = hn::Repartition<std::int16_t, SumTag>;
    static constexpr std::int32_t kMaxWeight = 32767;

    struct Pair {
        Exchange<std::int16_t> first, second;
        std::int32_t weights;
    };

    /// From the even pixels in the lower half and the odd ones in the upper half to alternating pixels.
    static std::size_t orderOf(std::size_t lane, std::size_t lanes) {
        const std::size_t pixel = lane / kChannels, channel = lane % kChannels;
        return pixel / 2 * kChannels + (pixel % 2) * (lanes / 2) + channel;
    }

    static const std::int16_t* shorts(const std::uint16_t* sums) {
        return reinterpret_cast<const std::int16_t*>(sums);
    }

    void addExchange(const Exchange<std::int16_t>& exchange) {
        if (first_.entering == nullptr) {
            first_ = exchange;
            return;
        }
        const std::uint32_t lower = static_cast<std::uint32_t>(first_.weight) & 0xFFFFu;
        const std::uint32_t upper = static_cast<std::uint32_t>(exchange.weight) << 16;
        pairs_.push_back({first_, exchange, static_cast<std::int32_t>(lower | upper)});
        first_ = {};
    }

    PileOfColumns<std::uint16_t> pile_;
    std::size_t laneCount_;
    LaneRow<std::int32_t> differences_;
    std::vector<Pair> pairs_;
    Exchange<std::int16_t> first_{};  // waits for the second one of its pair
};

#endif  // HWY_TARGET != HWY_SCALAR

template <class Rows>
void convolveWith(PixelView source, MutablePixelView target, const std::vector<RingSquare>& squares,
                  std::int32_t divisor) {
    withByteQuotient(divisor, [&](const auto& quotient) HWY_ATTR {
        Rows rows(source, squares);
        RowWriter writer(target);
        for (int y = 0; y < source.height; ++y) {
            if (y > 0) rows.pile().moveTo(y);
            rows.prepareRow();
            std::uint32_t total[kChannels];
            rows.pile().firstWindow(total);
            std::uint8_t* HWY_RESTRICT bytes = writer.bytes();
            addAlongRow(
                total, std::size_t(source.width) * kChannels,
                [&](std::size_t lane) HWY_ATTR { return rows.differenceAt(lane); },
                [&](std::size_t lane, SumVector sums) HWY_ATTR { storeOpaque(quotient(sums), bytes, lane); });
            writer.writeTo(y);
        }
    });
}

}  // namespace

void convolveSquares(PixelView source, MutablePixelView target, const std::vector<RingSquare>& squares,
                     std::int32_t divisor) {
#if HWY_TARGET != HWY_SCALAR
    if (ShortRows::canHold(squares)) {
        convolveWith<ShortRows>(source, target, squares, divisor);
        return;
    }
#endif
    convolveWith<WideRows>(source, target, squares, divisor);
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(convolveSquares);

void convolveRings(PixelView source, MutablePixelView target, std::span<const std::int32_t> weights) {
    const auto weightOf = [&](std::size_t ring) {
        return ring < weights.size() ? static_cast<std::uint32_t>(weights[ring]) : 0u;
    };
    std::vector<RingSquare> squares;
    auto divisor = weightOf(0);
    for (std::size_t ring = 0; ring < weights.size(); ++ring) {
        divisor += 8u * static_cast<std::uint32_t>(ring) * weightOf(ring);
        const auto weight = static_cast<std::int32_t>(weightOf(ring) - weightOf(ring + 1));
        if (weight != 0) squares.push_back({static_cast<int>(ring), weight});
    }
    if (squares.empty()) squares.push_back({0, 0});
    HWY_DYNAMIC_DISPATCH(convolveSquares)(source, target, squares, static_cast<std::int32_t>(divisor));
}

}  // namespace orvane
#endif
