#include "filters/kernels/threshold_pixels.h"

#include <algorithm>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/threshold_pixels.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/map_pixels-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

struct Threshold {
    int largestSumBelow;  // of R + G + B; -1 when there is none
    Argb above, notAbove;

    Argb pixel(Argb p) const {
        const auto sum = static_cast<int>(redOf(p) + greenOf(p) + blueOf(p));
        return sum > largestSumBelow ? above : notAbove;
    }
#if HWY_TARGET != HWY_SCALAR
    HWY_INLINE PixelVector words(PixelVector p) const {
        const PixelTag d;
        const hn::RebindToSigned<PixelTag> di;
        const auto lowByte = hn::Set(d, 255u);
        const auto sum = hn::Add(hn::Add(hn::And(p, lowByte), hn::And(hn::ShiftRight<8>(p), lowByte)),
                                 hn::And(hn::ShiftRight<16>(p), lowByte));
        const auto isAbove = hn::Gt(hn::BitCast(di, sum), hn::Set(di, largestSumBelow));
        return hn::IfThenElse(hn::RebindMask(d, isAbove), hn::Set(d, above), hn::Set(d, notAbove));
    }
#endif
};

}  // namespace

void thresholdPixels(const Argb* source, Argb* target, std::size_t count, int level, Argb above,
                     Argb notAbove) {
    const int anyLevel = std::clamp(level, -1, 255);
    mapPixels(source, target, count, WordWise<Threshold>{{3 * anyLevel + 2, above, notAbove}});
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(thresholdPixels);

void thresholdPixels(const Argb* source, Argb* target, std::size_t count, int level, Argb above,
                     Argb notAbove) noexcept {
    HWY_DYNAMIC_DISPATCH(thresholdPixels)(source, target, count, level, above, notAbove);
}

}  // namespace orvane
#endif
