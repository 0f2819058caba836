#include "platform/graphics/colour_ramp.h"

#include <algorithm>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/graphics/colour_ramp.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace orvane::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

using Words = hn::ScalableTag<std::uint32_t>;
using Floats = hn::ScalableTag<float>;
using Integers = hn::ScalableTag<std::int32_t>;
using Positions = hn::ScalableTag<std::uint64_t>;
using FloatVector = hn::Vec<Floats>;
using PositionVector = hn::Vec<Positions>;

/// One channel in its place in the word. Every sum is a whole number of 65536ths below 256, which a float
/// holds exactly, so nothing is rounded before the fraction is cut off.
template <int kShift>
HWY_INLINE hn::Vec<Words> channelAt(Argb from, Argb to, FloatVector weight) {
    const auto first = static_cast<float>((from >> kShift) & 255u);
    const auto last = static_cast<float>((to >> kShift) & 255u);
    const auto sum = hn::Add(hn::Mul(hn::Set(Floats(), (last - first) / 65536.0f), weight),
                             hn::Set(Floats(), first + 0.5f));
    return hn::ShiftLeft<kShift>(hn::BitCast(Words(), hn::ConvertTo(Integers(), sum)));
}

HWY_INLINE hn::Vec<Words> colourAt(Argb from, Argb to, hn::Vec<Words> upperHalf) {
    const auto weight = hn::ConvertTo(Floats(), hn::BitCast(Integers(), hn::ShiftRight<16>(upperHalf)));
    return hn::Or(hn::Or(channelAt<24>(from, to, weight), channelAt<16>(from, to, weight)),
                  hn::Or(channelAt<8>(from, to, weight), channelAt<0>(from, to, weight)));
}

#if HWY_TARGET == HWY_SCALAR  // a vector of words is not two of positions
void ColourRamp(Argb from, Argb to, std::uint64_t position, std::uint64_t step, std::size_t count,
                Argb* colours) {
    for (std::size_t i = 0; i < count; ++i, position += step) {
        const auto upperHalf = static_cast<std::uint32_t>(position >> 32);
        hn::Store(colourAt(from, to, hn::Set(Words(), upperHalf)), Words(), colours + i);
    }
}
#else
void ColourRamp(Argb from, Argb to, std::uint64_t position, std::uint64_t step, std::size_t count,
                Argb* colours) {
    const Words words;
    const Positions positions;
    const std::size_t lanes = hn::Lanes(words);
    HWY_ALIGN std::uint64_t starts[hn::MaxLanes(Words())];
    for (std::size_t i = 0; i < lanes; ++i) starts[i] = position + i * step;
    PositionVector left = hn::Load(positions, starts);
    PositionVector right = hn::Load(positions, starts + lanes / 2);
    const PositionVector stride = hn::Set(positions, lanes * step);
    const auto next = [&]() HWY_ATTR {
        const auto upper = hn::ConcatOdd(words, hn::BitCast(words, right), hn::BitCast(words, left));
        left = hn::Add(left, stride);
        right = hn::Add(right, stride);
        return colourAt(from, to, upper);
    };
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes) hn::StoreU(next(), words, colours + i);
    if (i == count) return;
    HWY_ALIGN Argb rest[hn::MaxLanes(Words())];
    hn::Store(next(), words, rest);
    std::copy(rest, rest + (count - i), colours + i);
}
#endif

}  // namespace orvane::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(ColourRamp);

void colourRamp(Argb from, Argb to, std::uint64_t position, std::uint64_t step, std::size_t count,
                Argb* colours) noexcept {
    HWY_DYNAMIC_DISPATCH(ColourRamp)(from, to, position, step, count, colours);
}

}  // namespace orvane
#endif  // HWY_ONCE
