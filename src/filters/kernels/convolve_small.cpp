#include "filters/kernels/convolve_small.h"

#include <algorithm>
#include <limits>
#include <numeric>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/convolve_small.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/byte_quotient-inl.h"
#include "filters/kernels/window_rows-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

/// Sums in 32 bits for any weights: a vector of levels takes two vectors of sums.
template <int kReach>
class WideSums {
 public:
    explicit WideSums(const std::int32_t* weights) : weights_(weights) {}

    template <class Quotient>
    HWY_INLINE LevelVector operator()(const Window<kReach>& window, const Quotient& quotient) const {
#if HWY_TARGET == HWY_SCALAR
        return hn::DemoteTo(LevelTag(), quotient(sums(window)));
#else
        const auto lower = quotient(sums(window));
        const auto upper = quotient(sums(window.movedBy(hn::Lanes(SumTag()))));
        const hn::Half<LevelTag> half;
        return hn::Combine(LevelTag(), hn::DemoteTo(half, upper), hn::DemoteTo(half, lower));
#endif
    }

 private:
    HWY_INLINE SumVector sums(const Window<kReach>& window) const {
        const SumTag d;
        const hn::Rebind<std::uint8_t, SumTag> d8;
        auto sum = hn::Zero(d);
        const std::int32_t* weight = weights_;
        for (int dx = -kReach; dx <= kReach; ++dx) {
            for (int dy = -kReach; dy <= kReach; ++dy, ++weight) {
                const auto levels = hn::PromoteTo(d, hn::LoadU(d8, window.at(dx, dy)));
                sum = hn::Add(sum, hn::Mul(levels, hn::Set(d, *weight)));
            }
        }
        return sum;
    }

    const std::int32_t* weights_;
};

#if HWY_TARGET != HWY_SCALAR
/// For weights of 16 bits: pixels are multiplied in pairs and added up in 32 bits.
template <int kReach>
class PairedSums {
    static constexpr int kSide = 2 * kReach + 1, kTaps = kSide * kSide;

 public:
    explicit PairedSums(const std::int32_t* weights) {
        for (int tap = 0; tap < kTaps; tap += 2) {
            const std::uint32_t second = tap + 1 < kTaps ? static_cast<std::uint32_t>(weights[tap + 1]) : 0u;
            pairs_[tap / 2] = static_cast<std::int32_t>((static_cast<std::uint32_t>(weights[tap]) & 0xFFFFu) |
                                                        second << 16);
        }
    }

    template <class Quotient>
    HWY_INLINE LevelVector operator()(const Window<kReach>& window, const Quotient& quotient) const {
        const SumTag d;
        const ShortTag shorts;
        auto lower = hn::Zero(d), lowerOdd = lower, upper = lower, upperOdd = lower;
        HWY_UNROLL(13)
        for (int tap = 0; tap < kTaps; tap += 2) {
            const auto first = window.shorts(tap / kSide - kReach, tap % kSide - kReach);
            const auto second = tap + 1 < kTaps
                                    ? window.shorts((tap + 1) / kSide - kReach, (tap + 1) % kSide - kReach)
                                    : hn::Zero(shorts);
            const auto weights = hn::BitCast(shorts, hn::Set(d, pairs_[tap / 2]));
            lower = hn::ReorderWidenMulAccumulate(d, hn::InterleaveLower(shorts, first, second), weights,
                                                  lower, lowerOdd);
            upper = hn::ReorderWidenMulAccumulate(d, hn::InterleaveUpper(shorts, first, second), weights,
                                                  upper, upperOdd);
        }
        return hn::DemoteTo(
            LevelTag(), hn::ReorderDemote2To(shorts, quotient(hn::RearrangeToOddPlusEven(lower, lowerOdd)),
                                             quotient(hn::RearrangeToOddPlusEven(upper, upperOdd))));
    }

 private:
    std::int32_t pairs_[(kTaps + 1) / 2];
};
#endif

template <int kReach, class Sums>
void convolveWith(PixelView source, MutablePixelView target, const Sums& sums, std::int32_t divisor) {
    withByteQuotient(divisor, [&](const auto& quotient) HWY_ATTR {
        const auto kernel = [&](const Window<kReach>& window, std::size_t firstByte)
                                HWY_ATTR { return withOpaqueAlpha(sums(window, quotient), firstByte); };
        forEachWindow<kReach>(source, target, kernel);
    });
}

template <int kReach>
void convolveOf(PixelView source, MutablePixelView target, std::span<const std::int32_t> weights) {
    const std::uint32_t sum =
        std::accumulate(weights.begin(), weights.end(), std::uint32_t{0},
                        [](std::uint32_t a, std::int32_t b) { return a + static_cast<std::uint32_t>(b); });
    const auto divisor = static_cast<std::int32_t>(sum);
#if HWY_TARGET != HWY_SCALAR
    const auto [least, most] = std::minmax_element(weights.begin(), weights.end());
    using Short = std::numeric_limits<std::int16_t>;
    if (*least >= Short::min() && *most <= Short::max()) {
        convolveWith<kReach>(source, target, PairedSums<kReach>(weights.data()), divisor);
        return;
    }
#endif
    convolveWith<kReach>(source, target, WideSums<kReach>(weights.data()), divisor);
}

}  // namespace

void convolve(PixelView source, MutablePixelView target, std::span<const std::int32_t> weights) {
    if (weights.size() == 9) {
        convolveOf<1>(source, target, weights);
    } else {
        convolveOf<2>(source, target, weights);
    }
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(convolve);

void convolveSmall(PixelView source, MutablePixelView target,
                   std::span<const std::int32_t> weights) noexcept {
    HWY_DYNAMIC_DISPATCH(convolve)(source, target, weights);
}

}  // namespace orvane
#endif
