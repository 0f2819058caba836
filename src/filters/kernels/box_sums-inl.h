// The loop of square windows in which every pixel counts alike; compiled once per instruction set.
#if defined(ORVANE_FILTERS_KERNELS_BOX_SUMS_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef ORVANE_FILTERS_KERNELS_BOX_SUMS_INL_H
#undef ORVANE_FILTERS_KERNELS_BOX_SUMS_INL_H
#else
#define ORVANE_FILTERS_KERNELS_BOX_SUMS_INL_H
#endif

#include <cstddef>
#include <cstdint>

#include "filters/kernels/column_sums-inl.h"
#include "filters/kernels/row_writer-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {

using SumLevelTag = hn::Rebind<std::uint8_t, SumTag>;

/// Stores the values from a lane of a row on as bytes, clamped to 0..255, with every alpha set to 255.
HWY_INLINE void storeOpaque(SumVector values, std::uint8_t* row, std::size_t lane) {
    const SumLevelTag d;
    auto levels = hn::DemoteTo(d, values);
#if HWY_TARGET == HWY_SCALAR
    if (lane % kChannels == 3) levels = hn::Set(d, std::uint8_t{255});
#else
    const hn::Repartition<Argb, SumLevelTag> pixels;
    levels = hn::Or(levels, hn::BitCast(d, hn::Set(pixels, kOpaque)));
#endif
    hn::StoreU(levels, d, row + lane);
}

template <class Sum, class Finish>
HWY_INLINE void forEachBoxSumOf(PixelView source, MutablePixelView target, int radius, Finish&& finish) {
    const SumTag d;
    const hn::Rebind<Sum, SumTag> narrow;
    ColumnSums<Sum> columns(source, radius);
    RowWriter writer(target);
    columns.start();
    for (int y = 0; y < source.height; ++y) {
        if (y > 0) columns.moveTo(y);
        std::uint32_t total[kChannels];
        columns.firstWindow(total);
        const Sum* HWY_RESTRICT entering = columns.at(columns.reach());
        const Sum* HWY_RESTRICT leaving = columns.at(-1 - columns.reach());
        const auto load = [&](const Sum* lanes) HWY_ATTR {
            if constexpr (sizeof(Sum) == sizeof(std::int32_t)) {
                return hn::BitCast(d, hn::LoadU(narrow, lanes));
            } else {
                return hn::PromoteTo(d, hn::LoadU(narrow, lanes));
            }
        };
        std::uint8_t* HWY_RESTRICT bytes = writer.bytes();
        finish.startRow(y);
        addAlongRow(
            total, std::size_t(source.width) * kChannels,
            [&](std::size_t lane) HWY_ATTR { return hn::Sub(load(entering + lane), load(leaving + lane)); },
            [&](std::size_t lane, SumVector sums) HWY_ATTR { finish(sums, lane, bytes); });
        finish.finishRow(y, bytes);
        writer.writeTo(y);
    }
}

/// Hands the sum of every window of 2 * radius + 1 pixels square, per channel and wrapping at 32 bits, to
/// finish(SumVector sums, std::size_t lane, std::uint8_t* results), which writes what it makes of them to
/// results + lane, a vector of bytes even at the row's end. finish.startRow(y) is called before each
/// row, finish.finishRow(y, results) after it.
/// Pixels beyond an edge repeat the edge pixel.
template <class Finish>
HWY_INLINE void forEachBoxSum(PixelView source, MutablePixelView target, int radius, Finish&& finish) {
    if (radius <= ColumnSums<std::uint16_t>::kMaxShortRadius) {
        forEachBoxSumOf<std::uint16_t>(source, target, radius, finish);
    } else {
        forEachBoxSumOf<std::uint32_t>(source, target, radius, finish);
    }
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#endif  // include guard per instruction set
