// Products of bytes with fixed slopes in 16-bit lanes; compiled once per instruction set.
#if defined(ORVANE_FILTERS_KERNELS_FIXED_SLOPE_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef ORVANE_FILTERS_KERNELS_FIXED_SLOPE_INL_H
#undef ORVANE_FILTERS_KERNELS_FIXED_SLOPE_INL_H
#else
#define ORVANE_FILTERS_KERNELS_FIXED_SLOPE_INL_H
#endif

#include <cstdint>

#include "filters/kernels/fixed_slope.h"
#include "filters/kernels/map_pixels-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {

#if HWY_TARGET != HWY_SCALAR

using WideTag = hn::Repartition<std::uint16_t, PixelTag>;
using WideVector = hn::Vec<WideTag>;

/// Two 16-bit values for the two lanes of every pixel, `low` in the lane of blue or green.
HWY_INLINE WideVector setPairs(std::uint16_t low, std::uint16_t high) {
    return hn::BitCast(WideTag(), hn::Set(PixelTag(), Argb{high} << 16 | low));
}

/// FixedSlope::times for every lane.
HWY_INLINE WideVector timesSlope(WideVector bytes, WideVector whole, WideVector fraction) {
    return hn::Add(hn::Mul(bytes, whole), hn::MulHigh(bytes, fraction));
}

/// The sum of signed lanes, held within 0..255.
HWY_INLINE WideVector clampedSum(WideVector a, WideVector b) {
    const WideTag d16;
    const hn::RebindToSigned<WideTag> di16;
    const auto sum = hn::SaturatedAdd(hn::BitCast(di16, a), hn::BitCast(di16, b));
    const auto limited = hn::Min(hn::Max(sum, hn::Zero(di16)), hn::Set(di16, std::int16_t{255}));
    return hn::BitCast(d16, limited);
}

/// The channels of every pixel in 16-bit lanes: blue and red, green and alpha.
HWY_INLINE WideVector blueRedOf(PixelVector pixels) {
    return hn::BitCast(WideTag(), hn::And(pixels, hn::Set(PixelTag(), 0x00FF00FFu)));
}
HWY_INLINE WideVector greenAlphaOf(PixelVector pixels) {
    return hn::ShiftRight<8>(hn::BitCast(WideTag(), pixels));
}
HWY_INLINE PixelVector pixelsFrom(WideVector blueRed, WideVector greenAlpha) {
    return hn::BitCast(PixelTag(), hn::Or(blueRed, hn::ShiftLeft<8>(greenAlpha)));
}

#endif  // HWY_TARGET != HWY_SCALAR

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#endif  // include guard per instruction set
