#include "filters/kernels/invert_pixels.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/invert_pixels.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/map_pixels-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

struct Negative {
    Argb pixel(Argb p) const { return ~p | kOpaque; }
#if HWY_TARGET != HWY_SCALAR
    HWY_INLINE PixelVector words(PixelVector p) const {
        return hn::Or(hn::Not(p), hn::Set(PixelTag(), kOpaque));
    }
#endif
};

}  // namespace

void invertPixels(const Argb* source, Argb* target, std::size_t count) {
    mapPixels(source, target, count, WordWise<Negative>{});
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(invertPixels);

void invertPixels(const Argb* source, Argb* target, std::size_t count) noexcept {
    HWY_DYNAMIC_DISPATCH(invertPixels)(source, target, count);
}

}  // namespace orvane
#endif
