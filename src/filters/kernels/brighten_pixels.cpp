#include "filters/kernels/brighten_pixels.h"

#include <algorithm>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/brighten_pixels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

void brightenPixels(const Argb* source, const std::uint8_t* levels, Argb* target, std::size_t count) {
    std::size_t x = 0;
#if HWY_TARGET != HWY_SCALAR
    const hn::ScalableTag<std::uint32_t> d;
    const hn::Repartition<std::uint8_t, decltype(d)> bytes;
    const hn::Rebind<std::uint8_t, decltype(d)> narrow;
    for (; x + hn::Lanes(d) <= count; x += hn::Lanes(d)) {
        const auto light = hn::Mul(hn::PromoteTo(d, hn::LoadU(narrow, levels + x)), hn::Set(d, 0x00010101u));
        const auto sum =
            hn::SaturatedAdd(hn::BitCast(bytes, hn::LoadU(d, source + x)), hn::BitCast(bytes, light));
        hn::StoreU(hn::Or(hn::BitCast(d, sum), hn::Set(d, 0xFF000000u)), d, target + x);
    }
#endif
    for (; x < count; ++x) {
        const auto sum = [&](unsigned channel) { return std::min(channel + levels[x], 255u); };
        target[x] = makeOpaque(sum(redOf(source[x])), sum(greenOf(source[x])), sum(blueOf(source[x])));
    }
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(brightenPixels);

void brightenPixels(const Argb* source, const std::uint8_t* levels, Argb* target, std::size_t count) {
    HWY_DYNAMIC_DISPATCH(brightenPixels)(source, levels, target, count);
}

}  // namespace orvane
#endif
