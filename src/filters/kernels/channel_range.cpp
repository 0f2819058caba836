#include "filters/kernels/channel_range.h"

#include <algorithm>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/channel_range.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/map_pixels-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

void extendRange(ChannelRange& range, Argb low, Argb high) {
    range.minimum =
        makeOpaque(std::min(redOf(range.minimum), redOf(low)), std::min(greenOf(range.minimum), greenOf(low)),
                   std::min(blueOf(range.minimum), blueOf(low)));
    range.maximum = makeOpaque(std::max(redOf(range.maximum), redOf(high)),
                               std::max(greenOf(range.maximum), greenOf(high)),
                               std::max(blueOf(range.maximum), blueOf(high)));
}

}  // namespace

ChannelRange channelRange(const Argb* source, std::size_t count) {
    ChannelRange range;
    std::size_t done = 0;
#if HWY_TARGET != HWY_SCALAR
    const PixelTag d;
    const ByteTag d8;
    const std::size_t lanes = hn::Lanes(d);
    auto low = hn::Set(d8, std::uint8_t{255}), otherLow = low;
    auto high = hn::Zero(d8), otherHigh = high;
    for (; count - done >= 2 * lanes; done += 2 * lanes) {
        const auto pixels = hn::BitCast(d8, hn::LoadU(d, source + done));
        const auto otherPixels = hn::BitCast(d8, hn::LoadU(d, source + done + lanes));
        low = hn::Min(low, pixels);
        high = hn::Max(high, pixels);
        otherLow = hn::Min(otherLow, otherPixels);
        otherHigh = hn::Max(otherHigh, otherPixels);
    }
    HWY_ALIGN Argb lows[HWY_LANES(Argb)], highs[HWY_LANES(Argb)];
    hn::Store(hn::BitCast(d, hn::Min(low, otherLow)), d, lows);
    hn::Store(hn::BitCast(d, hn::Max(high, otherHigh)), d, highs);
    for (std::size_t i = 0; i < lanes; ++i) extendRange(range, lows[i], highs[i]);
#endif
    for (; done < count; ++done) extendRange(range, source[done], source[done]);
    return range;
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(channelRange);

ChannelRange channelRange(const Argb* source, std::size_t count) noexcept {
    return HWY_DYNAMIC_DISPATCH(channelRange)(source, count);
}

}  // namespace orvane
#endif
