#include "filters/kernels/saturate_pixels.h"

#include <algorithm>
#include <cmath>

#include "base/truncate.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/saturate_pixels.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/luma-inl.h"
#include "filters/kernels/map_pixels-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

struct Saturation {
    double s, k;

    Argb pixel(Argb p) const {
        const double grey = std::trunc(lumaOf(p) * k);
        const auto moved = [&](unsigned channel) {
            return static_cast<unsigned>(clampToByte(truncateToInt(channel * s + grey)));
        };
        return makeOpaque(moved(redOf(p)), moved(greenOf(p)), moved(blueOf(p)));
    }

#if HWY_TARGET != HWY_SCALAR && HWY_HAVE_FLOAT64
    HWY_INLINE PixelVector words(PixelVector p) const {
        const PixelTag d;
        const IntTag di;
        const hn::Half<IntTag> dh;
        const hn::Rebind<double, decltype(dh)> df;
        const auto luma = lumaOf(p);
        const auto scale = hn::Set(df, s), rest = hn::Set(df, k);
        const auto greyLower = hn::Trunc(hn::Mul(hn::PromoteTo(df, hn::LowerHalf(dh, luma)), rest));
        const auto greyUpper = hn::Trunc(hn::Mul(hn::PromoteTo(df, hn::UpperHalf(dh, luma)), rest));
        const auto moved = [&](IntVector channel) HWY_ATTR {
            const auto lower = hn::PromoteTo(df, hn::LowerHalf(dh, channel));
            const auto upper = hn::PromoteTo(df, hn::UpperHalf(dh, channel));
            const auto whole = hn::Combine(di, hn::DemoteTo(dh, hn::Add(hn::Mul(upper, scale), greyUpper)),
                                           hn::DemoteTo(dh, hn::Add(hn::Mul(lower, scale), greyLower)));
            const auto clamped = hn::Min(hn::Max(whole, hn::Zero(di)), hn::Set(di, 255));
            return hn::BitCast(d, clamped);
        };
        const auto red = moved(channelOf<16>(p)), green = moved(channelOf<8>(p));
        const auto blue = moved(channelOf<0>(p));
        return hn::Or(hn::Or(hn::ShiftLeft<16>(red), hn::ShiftLeft<8>(green)),
                      hn::Or(blue, hn::Set(d, kOpaque)));
    }
#endif
};

}  // namespace

void saturatePixels(const Argb* source, Argb* target, std::size_t count, int percent) {
    WordWise<Saturation> saturation;
    saturation.s = percent * 0.01;
    saturation.k = 1.0 - saturation.s;
#if HWY_TARGET == HWY_SCALAR || HWY_HAVE_FLOAT64
    mapPixels(source, target, count, saturation);
#else
    std::transform(source, source + count, target, [&](Argb p) { return saturation.pixel(p); });
#endif
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(saturatePixels);

void saturatePixels(const Argb* source, Argb* target, std::size_t count, int percent) noexcept {
    HWY_DYNAMIC_DISPATCH(saturatePixels)(source, target, count, percent);
}

}  // namespace orvane
#endif
