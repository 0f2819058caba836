#include "filters/kernels/saturate_pixels.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "base/truncate.h"
#include "filters/kernels/fixed_slope.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/saturate_pixels.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/fixed_slope-inl.h"
#include "filters/kernels/luma-inl.h"
#include "filters/kernels/map_pixels-inl.h"

#ifndef ORVANE_FILTERS_KERNELS_SATURATE_PIXELS_ONCE
#define ORVANE_FILTERS_KERNELS_SATURATE_PIXELS_ONCE
namespace orvane {
namespace {

/// The operation in 16-bit arithmetic: the share of the channel, plus or minus the share of the luma.
struct FixedSaturation {
    FixedSlope channelShare, lumaShare;
    bool subtractLuma = false;

    int grey(int luma) const { return subtractLuma ? -lumaShare.times(luma) : lumaShare.times(luma); }
};

}  // namespace
}  // namespace orvane
#endif

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

/// The literal form in double precision, for every percentage.
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

struct FastSaturation {
    FixedSaturation form;

    Argb pixel(Argb p) const {
        const int grey = form.grey(lumaOf(p));
        const auto moved = [&](unsigned channel) {
            const int share = form.channelShare.times(static_cast<int>(channel));
            return static_cast<unsigned>(clampToByte(share + grey));
        };
        return makeOpaque(moved(redOf(p)), moved(greenOf(p)), moved(blueOf(p)));
    }

#if HWY_TARGET != HWY_SCALAR
    HWY_INLINE PixelVector words(PixelVector p) const {
        const PixelTag d;
        const WideTag d16;
        const auto luma = hn::BitCast(d, lumaOf(p));
        const auto lumaPair = hn::BitCast(d16, hn::Or(luma, hn::ShiftLeft<16>(luma)));
        const auto share =
            timesSlope(lumaPair, hn::Set(d16, form.lumaShare.whole), hn::Set(d16, form.lumaShare.fraction));
        // Negation: all bits turned over, plus one.
        const auto sign = hn::Set(d16, static_cast<std::uint16_t>(form.subtractLuma ? 0xFFFFu : 0u));
        const auto grey = hn::Sub(hn::Xor(share, sign), sign);
        const auto moved = [&](WideVector channels) HWY_ATTR {
            return clampedSum(timesSlope(channels, hn::Set(d16, form.channelShare.whole),
                                         hn::Set(d16, form.channelShare.fraction)),
                              grey);
        };
        return hn::Or(pixelsFrom(moved(blueRedOf(p)), moved(greenAlphaOf(p))), hn::Set(d, kOpaque));
    }
#endif
};

}  // namespace

void saturateFast(const Argb* source, Argb* target, std::size_t count, const FixedSaturation& form) {
    mapPixels(source, target, count, WordWise<FastSaturation>{{form}});
}

void saturateLiterally(const Argb* source, Argb* target, std::size_t count, double s, double k) {
    const WordWise<Saturation> saturation{{s, k}};
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
namespace {

HWY_EXPORT(saturateFast);
HWY_EXPORT(saturateLiterally);

/// Whether 16-bit arithmetic gives the literal result for every channel value and every luma.
bool isExact(const FixedSaturation& form, double s, double k) {
    for (int luma = 0; luma < 256; ++luma) {
        if (form.grey(luma) != std::trunc(luma * k)) return false;
    }
    for (int channel = 0; channel < 256; ++channel) {
        const double share = channel * s, nearest = std::round(share);
        // A whole number added to a fraction cannot carry it over the next whole number, unless it was within
        // a rounding error of one.
        constexpr double kFarFromWhole = 1e-6;
        if (share == nearest || std::abs(share - nearest) > kFarFromWhole) {
            if (form.channelShare.times(channel) != std::trunc(share)) return false;
            continue;
        }
        for (int luma = 0; luma < 256; ++luma) {
            const int literal = truncateToInt(share + std::trunc(luma * k));
            if (clampToByte(form.channelShare.times(channel) + form.grey(luma)) != clampToByte(literal)) {
                return false;
            }
        }
    }
    return true;
}

}  // namespace

void saturatePixels(const Argb* source, Argb* target, std::size_t count, int percent) noexcept {
    const double s = percent * 0.01, k = 1.0 - s;
    const auto channelShare = FixedSlope::from(s), lumaShare = FixedSlope::from(std::abs(k));
    if (channelShare && lumaShare) {
        const FixedSaturation form{*channelShare, *lumaShare, k < 0.0};
        if (isExact(form, s, k)) {
            HWY_DYNAMIC_DISPATCH(saturateFast)(source, target, count, form);
            return;
        }
    }
    HWY_DYNAMIC_DISPATCH(saturateLiterally)(source, target, count, s, k);
}

}  // namespace orvane
#endif
