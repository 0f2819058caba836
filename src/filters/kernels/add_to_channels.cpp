#include "filters/kernels/add_to_channels.h"

#include <algorithm>

#include "base/truncate.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/add_to_channels.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/map_pixels-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

struct ChannelSum {
    int red, green, blue;     // -255..255
    Argb increase, decrease;  // the same as two words of magnitudes, for saturating bytes

    Argb pixel(Argb p) const {
        const auto sum = [](unsigned channel, int change) {
            return static_cast<unsigned>(clampToByte(static_cast<int>(channel) + change));
        };
        return makeOpaque(sum(redOf(p), red), sum(greenOf(p), green), sum(blueOf(p), blue));
    }
#if HWY_TARGET != HWY_SCALAR
    HWY_INLINE PixelVector words(PixelVector p) const {
        const PixelTag d;
        const ByteTag d8;
        const auto raised = hn::SaturatedAdd(hn::BitCast(d8, p), hn::BitCast(d8, hn::Set(d, increase)));
        const auto changed = hn::SaturatedSub(raised, hn::BitCast(d8, hn::Set(d, decrease)));
        return hn::Or(hn::BitCast(d, changed), hn::Set(d, kOpaque));
    }
#endif
};

unsigned positivePart(int value) { return value > 0 ? static_cast<unsigned>(value) : 0u; }

}  // namespace

void addToChannels(const Argb* source, Argb* target, std::size_t count, int red, int green, int blue) {
    const auto limited = [](int change) { return std::clamp(change, -255, 255); };
    WordWise<ChannelSum> sum;
    sum.red = limited(red);
    sum.green = limited(green);
    sum.blue = limited(blue);
    sum.increase = makeArgb(0, positivePart(sum.red), positivePart(sum.green), positivePart(sum.blue));
    sum.decrease = makeArgb(0, positivePart(-sum.red), positivePart(-sum.green), positivePart(-sum.blue));
    mapPixels(source, target, count, sum);
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(addToChannels);

void addToChannels(const Argb* source, Argb* target, std::size_t count, int red, int green,
                   int blue) noexcept {
    HWY_DYNAMIC_DISPATCH(addToChannels)(source, target, count, red, green, blue);
}

}  // namespace orvane
#endif
