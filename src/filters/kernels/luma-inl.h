// The luma of pixels, exactly as the double-precision formula gives it; compiled once per instruction set.
#if defined(ORVANE_FILTERS_KERNELS_LUMA_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef ORVANE_FILTERS_KERNELS_LUMA_INL_H
#undef ORVANE_FILTERS_KERNELS_LUMA_INL_H
#else
#define ORVANE_FILTERS_KERNELS_LUMA_INL_H
#endif

#include <cstddef>
#include <cstdint>

#include "filters/kernels/luma.h"
#include "filters/kernels/map_pixels-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {

using orvane::lumaOf;  // of one pixel; the vector form joins it

#if HWY_TARGET != HWY_SCALAR

using IntTag = hn::RebindToSigned<PixelTag>;
using IntVector = hn::Vec<IntTag>;

/// One channel (by its bit position in the word) of every pixel.
template <int kShift>
HWY_INLINE IntVector channelOf(PixelVector pixels) {
    const PixelTag d;
    return hn::BitCast(IntTag(), hn::And(hn::ShiftRight<kShift>(pixels), hn::Set(d, 255u)));
}

#if HWY_HAVE_FLOAT64
template <LumaOrder kOrder, class DoubleTag, class HalfVector>
HWY_INLINE hn::Vec<DoubleTag> lumaSum(DoubleTag df, HalfVector red, HalfVector green, HalfVector blue) {
    const auto redShare = hn::Mul(hn::Set(df, 0.2125), hn::PromoteTo(df, red));
    const auto greenShare = hn::Mul(hn::Set(df, 0.7154), hn::PromoteTo(df, green));
    const auto blueShare = hn::Mul(hn::Set(df, 0.0721), hn::PromoteTo(df, blue));
    return kOrder == LumaOrder::RedGreenBlue ? hn::Add(hn::Add(redShare, greenShare), blueShare)
                                             : hn::Add(hn::Add(blueShare, redShare), greenShare);
}
#endif

/// The formula itself in vectors.
template <LumaOrder kOrder>
HWY_INLINE IntVector literalLuma(PixelVector pixels) {
    const IntTag di;
#if HWY_HAVE_FLOAT64
    const hn::Half<IntTag> dh;
    const hn::Rebind<double, decltype(dh)> df;
    const auto red = channelOf<16>(pixels), green = channelOf<8>(pixels), blue = channelOf<0>(pixels);
    const auto lower =
        lumaSum<kOrder>(df, hn::LowerHalf(dh, red), hn::LowerHalf(dh, green), hn::LowerHalf(dh, blue));
    const auto upper =
        lumaSum<kOrder>(df, hn::UpperHalf(dh, red), hn::UpperHalf(dh, green), hn::UpperHalf(dh, blue));
    return hn::Combine(di, hn::DemoteTo(dh, upper), hn::DemoteTo(dh, lower));
#else
    HWY_ALIGN Argb words[HWY_LANES(Argb)];
    HWY_ALIGN std::int32_t lumas[HWY_LANES(Argb)];
    hn::Store(pixels, PixelTag(), words);
    for (std::size_t i = 0; i < hn::Lanes(di); ++i) lumas[i] = lumaOf<kOrder>(words[i]);
    return hn::Load(di, lumas);
#endif
}

/// sum + a[2i] * b[2i] + a[2i + 1] * b[2i + 1] of 16-bit lanes.
template <class V16>
HWY_INLINE IntVector sumOfProducts(IntVector sum, V16 a, V16 b) {
    const IntTag di;
    auto rest = hn::Zero(di);
    const auto first = hn::ReorderWidenMulAccumulate(di, a, b, hn::Zero(di), rest);
    return hn::Add(sum, hn::RearrangeToOddPlusEven(first, rest));
}

/// The luma of every pixel, one per lane. In units of 1/10000 it is a sum of whole numbers, and cutting the
/// fraction off gives what the formula gives, except where nothing is to be cut off: there the rounding
/// errors of the formula decide (43, 43, 43 has luma 42), and only the formula itself knows them. That
/// happens to all greys and to one colour in ten thousand.
template <LumaOrder kOrder = LumaOrder::RedGreenBlue>
HWY_INLINE IntVector lumaOf(PixelVector pixels) {
    const PixelTag d;
    const IntTag di;
    const hn::Repartition<std::int16_t, PixelTag> di16;
    const hn::Repartition<std::uint16_t, PixelTag> d16;
    const hn::RebindToFloat<PixelTag> df;

    const auto blueRed = hn::BitCast(di16, hn::And(pixels, hn::Set(d, 0x00FF00FFu)));
    const auto greenAlpha = hn::BitCast(di16, hn::ShiftRight<8>(hn::BitCast(d16, pixels)));
    const auto blueRedWeights = hn::BitCast(di16, hn::Set(d, (2125u << 16) | 721u));
    const auto greenWeight = hn::BitCast(di16, hn::Set(d, 7154u));
    const auto total =
        sumOfProducts(sumOfProducts(hn::Zero(di), blueRed, blueRedWeights), greenAlpha, greenWeight);

    // The bias of half a unit is larger than any error of single precision and too small to reach the next
    // whole number.
    const auto luma = hn::ConvertTo(
        di, hn::Add(hn::Mul(hn::ConvertTo(df, total), hn::Set(df, 1e-4f)), hn::Set(df, 0.5e-4f)));
    const auto back =
        sumOfProducts(hn::Zero(di), hn::BitCast(di16, luma), hn::BitCast(di16, hn::Set(di, 10000)));
    if (HWY_LIKELY(hn::AllFalse(di, hn::Eq(back, total)))) return luma;
    return literalLuma<kOrder>(pixels);
}

#endif  // HWY_TARGET != HWY_SCALAR

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#endif  // include guard per instruction set
