#include "platform/graphics/opaque_rows.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/graphics/opaque_rows.cpp"
#include <hwy/cache_control.h>
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace orvane::opaque_rows::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

using ByteLanes = std::uint8_t;

HWY_INLINE const ByteLanes* bytesOf(const Argb* row) { return reinterpret_cast<const ByteLanes*>(row); }

void AverageQuads(const Argb* upper, const Argb* lower, std::size_t count, Argb* target) {
    std::size_t i = 0;
#if HWY_TARGET != HWY_SCALAR
    const hn::ScalableTag<std::uint16_t> shorts;
    const hn::ScalableTag<std::uint64_t> pixels;  // of four shorts
    const hn::Rebind<ByteLanes, decltype(shorts)> narrow;
    const std::size_t lanes = hn::Lanes(shorts), step = lanes / 4;
    for (; i + step <= count; i += step) {
        const ByteLanes *const above = bytesOf(upper + 2 * i), *const below = bytesOf(lower + 2 * i);
        const auto sum = [&](std::size_t byte) HWY_ATTR {
            return hn::Add(hn::PromoteTo(shorts, hn::LoadU(narrow, above + byte)),
                           hn::PromoteTo(shorts, hn::LoadU(narrow, below + byte)));
        };
        const auto first = hn::BitCast(pixels, sum(0)), second = hn::BitCast(pixels, sum(lanes));
        const auto left = hn::BitCast(shorts, hn::ConcatEven(pixels, second, first));
        const auto right = hn::BitCast(shorts, hn::ConcatOdd(pixels, second, first));
        const auto total = hn::Add(hn::Add(left, right), hn::Set(shorts, std::uint16_t{2}));
        const auto mean = hn::BitCast(hn::RebindToSigned<decltype(shorts)>(), hn::ShiftRight<2>(total));
        hn::StoreU(hn::DemoteTo(narrow, mean), narrow, reinterpret_cast<ByteLanes*>(target + i));
    }
#endif
    for (; i < count; ++i) {
        const Argb quad[] = {upper[2 * i], upper[2 * i + 1], lower[2 * i], lower[2 * i + 1]};
        Argb mean = 0;
        for (int shift = 0; shift < 32; shift += 8) {
            unsigned total = 2;
            for (const Argb p : quad) total += (p >> shift) & 255u;
            mean |= (total / 4) << shift;
        }
        target[i] = mean;
    }
}

constexpr int kFractionBits = 7;

void WidenRow(const Argb* source, const Argb* ahead, std::size_t count, std::int16_t* target) {
    const hn::ScalableTag<std::int16_t> d;
    const hn::Rebind<ByteLanes, hn::ScalableTag<std::int16_t>> narrow;
    const ByteLanes* bytes = bytesOf(source);
    std::size_t i = 0;
    for (; i + hn::Lanes(d) <= count * 4; i += hn::Lanes(d)) {
        hn::StoreU(hn::ShiftLeft<kFractionBits>(hn::PromoteTo(d, hn::LoadU(narrow, bytes + i))), d,
                   target + i);
        if (i % 64 < hn::Lanes(d)) hwy::Prefetch(bytesOf(ahead) + i);
    }
    for (; i < count * 4; ++i) target[i] = std::int16_t(bytes[i] << kFractionBits);
}

// Both values are at most 255 * 128, so their difference fits; the product is rounded.
template <class V>
HWY_INLINE V interpolated(V from, V to, V weight) {
    return hn::Add(from, hn::MulFixedPoint15(hn::Sub(to, from), weight));
}

void InterpolateRow(const std::int16_t* source, const Neighbours* neighbours, std::size_t count,
                    std::int16_t* target) {
    std::size_t pixel = 0;
#if HWY_TARGET != HWY_SCALAR
    // Two at a time: either load brings a pixel and its right neighbour.
    const hn::FixedTag<std::int16_t, 8> two;
    const hn::FixedTag<std::int16_t, 4> one;
    for (; pixel + 2 <= count; pixel += 2) {
        const Neighbours *const n = neighbours + pixel, *const next = n + 1;
        const auto pair = hn::LoadU(two, source + std::size_t(n->first) * 4);
        const auto nextPair = hn::LoadU(two, source + std::size_t(next->first) * 4);
        const auto weight = hn::Combine(two, hn::LoadU(one, next->weight), hn::LoadU(one, n->weight));
        const auto from = hn::ConcatLowerLower(two, nextPair, pair);
        const auto to = hn::ConcatUpperUpper(two, nextPair, pair);
        hn::StoreU(interpolated(from, to, weight), two, target + pixel * 4);
    }
#endif
    const hn::CappedTag<std::int16_t, 4> d;
    for (; pixel < count; ++pixel) {
        const Neighbours& n = neighbours[pixel];
        for (std::size_t channel = 0; channel < 4; channel += hn::Lanes(d)) {
            const std::int16_t* from = source + std::size_t(n.first) * 4 + channel;
            const auto weight = hn::LoadU(d, n.weight + channel);
            hn::StoreU(interpolated(hn::LoadU(d, from), hn::LoadU(d, from + 4), weight), d,
                       target + pixel * 4 + channel);
        }
    }
}

void InterpolateBetween(const std::int16_t* upper, const std::int16_t* lower, std::int16_t weight,
                        std::size_t count, Argb* target, [[maybe_unused]] bool streamed) {
    const hn::ScalableTag<std::int16_t> full;
    const hn::CappedTag<std::int16_t, 4> onePixel;
    ByteLanes* bytes = reinterpret_cast<ByteLanes*>(target);
    const auto levels = [&](auto d, std::size_t i) HWY_ATTR {
        const hn::Rebind<ByteLanes, decltype(d)> narrow;
        const auto value = interpolated(hn::LoadU(d, upper + i), hn::LoadU(d, lower + i), hn::Set(d, weight));
        const auto half = hn::Set(d, std::int16_t{1 << (kFractionBits - 1)});
        return hn::DemoteTo(narrow, hn::ShiftRight<kFractionBits>(hn::Add(value, half)));
    };
    const auto at = [&](auto d, std::size_t i) HWY_ATTR {
        hn::StoreU(levels(d, i), hn::Rebind<ByteLanes, decltype(d)>(), bytes + i);
    };
    std::size_t i = 0;
#if HWY_TARGET != HWY_SCALAR
    if (streamed) {
        const hn::ScalableTag<ByteLanes> whole;
        const std::size_t lanes = hn::Lanes(whole);
        for (; i < count * 4 && reinterpret_cast<std::uintptr_t>(bytes + i) % lanes != 0; i += 4)
            at(onePixel, i);
        for (; i + lanes <= count * 4; i += lanes) {
            const auto joined = hn::Combine(whole, levels(full, i + lanes / 2), levels(full, i));
            hn::Stream(joined, whole, bytes + i);
        }
    }
#endif
    for (; i + hn::Lanes(full) <= count * 4; i += hn::Lanes(full)) at(full, i);
    for (; i < count * 4; i += hn::Lanes(onePixel)) at(onePixel, i);
}

}  // namespace orvane::opaque_rows::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane::opaque_rows {

HWY_EXPORT(AverageQuads);
HWY_EXPORT(WidenRow);
HWY_EXPORT(InterpolateRow);
HWY_EXPORT(InterpolateBetween);

void averageQuads(const Argb* upper, const Argb* lower, std::size_t count, Argb* target) noexcept {
    HWY_DYNAMIC_DISPATCH(AverageQuads)(upper, lower, count, target);
}

void widenRow(const Argb* source, const Argb* ahead, std::size_t count, std::int16_t* target) noexcept {
    HWY_DYNAMIC_DISPATCH(WidenRow)(source, ahead, count, target);
}

void interpolateRow(const std::int16_t* source, const Neighbours* neighbours, std::size_t count,
                    std::int16_t* target) noexcept {
    HWY_DYNAMIC_DISPATCH(InterpolateRow)(source, neighbours, count, target);
}

void interpolateBetween(const std::int16_t* upper, const std::int16_t* lower, std::int16_t weight,
                        std::size_t count, Argb* target, bool streamed) noexcept {
    HWY_DYNAMIC_DISPATCH(InterpolateBetween)(upper, lower, weight, count, target, streamed);
}

}  // namespace orvane::opaque_rows
#endif  // HWY_ONCE
