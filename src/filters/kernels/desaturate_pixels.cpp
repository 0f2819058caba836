#include "filters/kernels/desaturate_pixels.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/desaturate_pixels.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/luma-inl.h"
#include "filters/kernels/map_pixels-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

struct Grey {
    Argb pixel(Argb p) const {
        const auto luma = static_cast<unsigned>(lumaOf(p));
        return makeOpaque(luma, luma, luma);
    }
#if HWY_TARGET != HWY_SCALAR
    HWY_INLINE PixelVector words(PixelVector p) const {
        const PixelTag d;
        const auto luma = hn::BitCast(d, lumaOf(p));
        const auto twice = hn::Or(luma, hn::ShiftLeft<8>(luma));
        return hn::Or(hn::Or(twice, hn::ShiftLeft<16>(luma)), hn::Set(d, kOpaque));
    }
#endif
};

}  // namespace

void desaturatePixels(const Argb* source, Argb* target, std::size_t count) {
    mapPixels(source, target, count, WordWise<Grey>{});
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(desaturatePixels);

void desaturatePixels(const Argb* source, Argb* target, std::size_t count) noexcept {
    HWY_DYNAMIC_DISPATCH(desaturatePixels)(source, target, count);
}

}  // namespace orvane
#endif
