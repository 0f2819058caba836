// Means of square windows; compiled once per instruction set.
#if defined(ORVANE_FILTERS_KERNELS_BOX_MEANS_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef ORVANE_FILTERS_KERNELS_BOX_MEANS_INL_H
#undef ORVANE_FILTERS_KERNELS_BOX_MEANS_INL_H
#else
#define ORVANE_FILTERS_KERNELS_BOX_MEANS_INL_H
#endif

#include <cstddef>
#include <cstdint>

#include "filters/kernels/box_mean.h"
#include "filters/kernels/box_sums-inl.h"
#include "filters/kernels/window_rows-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {

/// For windows so narrow that adding their columns is cheaper than running sums. The picture is wider than
/// the radius.
template <int kRadius, class FinishRow>
void forEachNarrowMean(PixelView source, MutablePixelView target, FinishRow& finishRow) {
    constexpr ShortReciprocal kReciprocal = reciprocalOf(kRadius);
    const hn::RebindToUnsigned<ShortTag> d;
    ColumnSums<std::uint16_t> columns(source, kRadius);
    RowWriter writer(target);
    const std::size_t laneCount = std::size_t(source.width) * kChannels;
    columns.start();
    for (int y = 0; y < source.height; ++y) {
        if (y > 0) columns.moveTo(y);
        std::uint8_t* HWY_RESTRICT bytes = writer.bytes();
        const std::uint16_t* HWY_RESTRICT leftmost = columns.at(-kRadius);
        for (std::size_t lane = 0; lane < laneCount; lane += hn::Lanes(d)) {
            auto sum = hn::LoadU(d, leftmost + lane);
            for (std::size_t column = 1; column <= 2 * kRadius; ++column) {
                sum = hn::Add(sum, hn::LoadU(d, leftmost + lane + column * kChannels));
            }
            const auto mean = hn::ShiftRight<kReciprocal.shift>(
                hn::MulHigh(sum, hn::Set(d, std::uint16_t{kReciprocal.factor})));
            const auto levels = hn::DemoteTo(LevelTag(), hn::BitCast(ShortTag(), mean));
            hn::StoreU(withOpaqueAlpha(levels, lane), LevelTag(), bytes + lane);
        }
        finishRow(y, bytes);
        writer.writeTo(y);
    }
}

template <class Quotient, class FinishRow>
struct RunningMeans {
    Quotient quotient;
    FinishRow& finish;

    void startRow(int) {}
    void finishRow(int y, std::uint8_t* results) { finish(y, results); }
    HWY_INLINE void operator()(SumVector sums, std::size_t lane, std::uint8_t* results) const {
        storeOpaque(quotient(sums), results, lane);
    }
};

/// Writes the mean of every window of 2 * radius + 1 pixels square to the target, per channel and rounded
/// down, with alpha 255. finishRow(int y, std::uint8_t* results) may change each row before it is written.
/// Pixels beyond an edge repeat the edge pixel. Beyond kMaxMeanRadius the sums, and that of the weights, wrap
/// at 32 bits; the quotient is then truncated toward zero and clamped.
template <class FinishRow>
HWY_INLINE void forEachBoxMean(PixelView source, MutablePixelView target, int radius, FinishRow&& finishRow) {
    if (source.width > radius) {
        if (radius == 1) return forEachNarrowMean<1>(source, target, finishRow);
        if (radius == 2) return forEachNarrowMean<2>(source, target, finishRow);
        if (radius == 3) return forEachNarrowMean<3>(source, target, finishRow);
    }
    const auto side = 2 * static_cast<std::uint32_t>(radius) + 1;
    const auto divisor = static_cast<std::int32_t>(side * side);
    const auto run = [&](const auto& quotient) HWY_ATTR {
        using Means = RunningMeans<std::decay_t<decltype(quotient)>, std::remove_reference_t<FinishRow>>;
        forEachBoxSum(source, target, radius, Means{quotient, finishRow});
    };
    if (radius <= kMaxMeanRadius) {
        withMeanQuotient(divisor, run);
    } else {
        withByteQuotient(divisor, run);
    }
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#endif  // include guard per instruction set
