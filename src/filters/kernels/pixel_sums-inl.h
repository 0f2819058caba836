// Sums of the four channels of pixels side by side; compiled once per instruction set.
#if defined(ORVANE_FILTERS_KERNELS_PIXEL_SUMS_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef ORVANE_FILTERS_KERNELS_PIXEL_SUMS_INL_H
#undef ORVANE_FILTERS_KERNELS_PIXEL_SUMS_INL_H
#else
#define ORVANE_FILTERS_KERNELS_PIXEL_SUMS_INL_H
#endif

#include <hwy/highway.h>
#include <orvane/pixels.h>

#include <cstddef>
#include <cstdint>

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// Sums of blue, green, red and alpha, one after the other in memory. Differences of sums that have wrapped
/// are right as long as they are below 2^32 themselves.
struct PixelSums {
    alignas(16) std::uint32_t channels[4];
};

/// The largest count of pixels that meanOf can divide by.
constexpr int kMaxMeanCount = 8191;

#if HWY_TARGET != HWY_SCALAR

using SumTag = hn::FixedTag<std::uint32_t, 4>;

/// before[i] becomes before[0] and the first i of the pixels at `places`, for i = 1..count.
HWY_INLINE void addUp(const Argb* HWY_RESTRICT pixels, const std::int32_t* HWY_RESTRICT places,
                      std::size_t count, PixelSums* HWY_RESTRICT before) {
    const SumTag d;
    const hn::FixedTag<std::uint8_t, 4> bytes;
    auto sums = hn::Load(d, before[0].channels);
    for (std::size_t i = 0; i < count; ++i) {
        const auto* pixel = reinterpret_cast<const std::uint8_t*>(pixels + places[i]);
        sums = hn::Add(sums, hn::PromoteTo(d, hn::LoadU(bytes, pixel)));
        hn::Store(sums, d, before[i + 1].channels);
    }
}

/// The opaque mean of the `count` pixels between two sums; count up to kMaxMeanCount.
HWY_INLINE Argb meanOf(const PixelSums& from, const PixelSums& to, int count) {
    const SumTag d;
    const hn::FixedTag<float, 4> df;
    const hn::FixedTag<std::int32_t, 4> di;
    const hn::FixedTag<std::uint8_t, 4> bytes;
    const hn::FixedTag<std::uint32_t, 1> word;
    const auto sums = hn::Sub(hn::Load(d, to.channels), hn::Load(d, from.channels));
    // A quotient is never nearer to the next whole number than half a part of the count after the half is
    // added; single precision is finer than that for these counts.
    const auto raised = hn::Add(hn::ConvertTo(df, hn::BitCast(di, sums)), hn::Set(df, 0.5f));
    const auto means = hn::ConvertTo(di, hn::Div(raised, hn::Set(df, float(count))));
    return hn::GetLane(hn::BitCast(word, hn::DemoteTo(bytes, means))) | 0xFF000000u;
}

#else

HWY_INLINE void addUp(const Argb* pixels, const std::int32_t* places, std::size_t count, PixelSums* before) {
    for (std::size_t i = 0; i < count; ++i) {
        const Argb pixel = pixels[places[i]];
        const std::uint32_t(&sums)[4] = before[i].channels;
        before[i + 1] = {{sums[0] + blueOf(pixel), sums[1] + greenOf(pixel), sums[2] + redOf(pixel), 0}};
    }
}

HWY_INLINE Argb meanOf(const PixelSums& from, const PixelSums& to, int count) {
    const auto mean = [&](int channel) {
        return (to.channels[channel] - from.channels[channel]) / unsigned(count);
    };
    return makeOpaque(mean(2), mean(1), mean(0));
}

#endif

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#endif  // include guard per target
