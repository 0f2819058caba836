#include "platform/graphics/sample_rows.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/graphics/sample_rows.cpp"
#include <hwy/cache_control.h>
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace orvane::sample_rows::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

using ByteLanes = std::uint8_t;

// The pixels around a sample: two neighbours in either row, and the weights of the right and lower ones.
struct Sample {
    const Argb* upper;
    const Argb* lower;
    std::int16_t weightX, weightY;
};

// Finds the pixels around consecutive samples of a line.
class Walker {
 public:
    Walker(const PixelView& source, const Line& line) : source_(source), line_(line) {}

    // Samples beyond an edge get their pixels in `edge`, which must live as long as the sample does.
    HWY_INLINE Sample next(Argb (&edge)[4]) {
        const auto x = std::int32_t(line_.x >> Line::kFractionBits);
        const auto y = std::int32_t(line_.y >> Line::kFractionBits);
        Sample sample;
        sample.weightX = weight(line_.x);
        sample.weightY = weight(line_.y);
        advance(1);
        if (HWY_LIKELY(isInside(x, y))) {
            sample.upper = source_.pixels + y * source_.stridePixels + x;
            sample.lower = sample.upper + source_.stridePixels;
        } else {
            copyEdge(x, y, edge);
            sample.upper = edge;
            sample.lower = edge + 2;
        }
        return sample;
    }
    // Lets the cache have the pixel under the sample, and goes on by several.
    HWY_INLINE void fetch(int samples) {
        const auto x = std::int32_t(line_.x >> Line::kFractionBits);
        const auto y = std::int32_t(line_.y >> Line::kFractionBits);
        advance(samples);
        if (HWY_LIKELY(isInside(x, y))) hwy::Prefetch(source_.pixels + y * source_.stridePixels + x);
    }

 private:
    // Beyond the last sample, and on the way to what is fetched, a position may wrap.
    HWY_INLINE void advance(int samples) {
        const auto sum = [&](std::int64_t position, std::int64_t step) {
            return std::int64_t(std::uint64_t(position) + std::uint64_t(step) * std::uint64_t(samples));
        };
        line_.x = sum(line_.x, line_.stepX);
        line_.y = sum(line_.y, line_.stepY);
    }
    // Whether the pixel and its right and lower neighbours exist. A negative number becomes a large one.
    HWY_INLINE bool isInside(std::int32_t x, std::int32_t y) const {
        return std::uint32_t(x) < std::uint32_t(source_.width - 1) &&
               std::uint32_t(y) < std::uint32_t(source_.height - 1);
    }
    static std::int16_t weight(std::int64_t position) {
        constexpr int kShift = Line::kFractionBits - Line::kWeightBits;
        return std::int16_t((position >> kShift) & ((1 << Line::kWeightBits) - 1));
    }
    static int clamped(std::int64_t position, int length) {
        return position < 0 ? 0 : position < length ? int(position) : length - 1;
    }
    HWY_NOINLINE void copyEdge(std::int64_t x, std::int64_t y, Argb (&edge)[4]) const {
        const int left = clamped(x, source_.width), right = clamped(x + 1, source_.width);
        const int top = clamped(y, source_.height), bottom = clamped(y + 1, source_.height);
        edge[0] = source_.at(left, top);
        edge[1] = source_.at(right, top);
        edge[2] = source_.at(left, bottom);
        edge[3] = source_.at(right, bottom);
    }

    const PixelView& source_;
    Line line_;
};

HWY_INLINE const ByteLanes* bytesOf(const Argb* pixels) { return reinterpret_cast<const ByteLanes*>(pixels); }

// --- opaque pixels: whole numbers ---

constexpr int kLevelBits = 7;

// Both values are at most 255 * 128, so their difference fits; the product is rounded.
template <class V>
HWY_INLINE V interpolated(V from, V to, V weight) {
    return hn::Add(from, hn::MulFixedPoint15(hn::Sub(to, from), weight));
}

#if HWY_TARGET != HWY_SCALAR
// A pixel and its right neighbour, interpolated between the two rows.
HWY_INLINE hn::Vec<hn::FixedTag<std::int16_t, 8>> between(const Sample& sample) {
    const hn::FixedTag<std::int16_t, 8> d;
    const hn::FixedTag<ByteLanes, 8> narrow;
    const auto levels = [&](const Argb* pixels) HWY_ATTR {
        return hn::ShiftLeft<kLevelBits>(hn::PromoteTo(d, hn::LoadU(narrow, bytesOf(pixels))));
    };
    return interpolated(levels(sample.upper), levels(sample.lower), hn::Set(d, sample.weightY));
}

HWY_INLINE void storeTwo(const Sample& first, const Sample& second, Argb* target) {
    const hn::FixedTag<std::int16_t, 8> d;
    const hn::FixedTag<ByteLanes, 8> narrow;
    const auto one = between(first), other = between(second);
    const auto weight = hn::ConcatUpperLower(d, hn::Set(d, second.weightX), hn::Set(d, first.weightX));
    const auto value =
        interpolated(hn::ConcatLowerLower(d, other, one), hn::ConcatUpperUpper(d, other, one), weight);
    const auto half = hn::Set(d, std::int16_t{1 << (kLevelBits - 1)});
    const auto level = hn::ShiftRight<kLevelBits>(hn::Add(value, half));
    hn::StoreU(hn::DemoteTo(narrow, level), narrow, reinterpret_cast<ByteLanes*>(target));
}
#endif

HWY_INLINE void storeOne(const Sample& sample, Argb* target) {
#if HWY_TARGET == HWY_SCALAR
    const auto mixed = [](int from, int to, int weight) {
        return from + (((to - from) * weight + (1 << 14)) >> 15);
    };
    Argb word = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const auto level = [&](const Argb* pixel) { return int((*pixel >> shift) & 255u) << kLevelBits; };
        const int left = mixed(level(sample.upper), level(sample.lower), sample.weightY);
        const int right = mixed(level(sample.upper + 1), level(sample.lower + 1), sample.weightY);
        word |= Argb((mixed(left, right, sample.weightX) + (1 << (kLevelBits - 1))) >> kLevelBits) << shift;
    }
    *target = word;
#else
    Argb both[2];
    storeTwo(sample, sample, both);
    *target = both[0];
#endif
}

void SampleOpaque(const PixelView& source, const Line& line, const Line& ahead, std::size_t count,
                  Argb* target) {
    Walker walker(source, line), scout(source, ahead);
    Argb edge[4];
    std::size_t i = 0;
#if HWY_TARGET != HWY_SCALAR
    Argb nextEdge[4];
    for (; i + 2 <= count; i += 2) {
        const Sample first = walker.next(edge);
        const Sample second = walker.next(nextEdge);
        scout.fetch(2);
        storeTwo(first, second, target + i);
    }
#endif
    for (; i < count; ++i) storeOne(walker.next(edge), target + i);
}

// --- pixels with alpha: floats ---

// Adds a pixel by its weight to the sums: colours count by their alpha too.
template <class D>
HWY_INLINE hn::Vec<D> weighted(D d, const Argb* pixel, std::size_t channel, float weight) {
    const hn::Rebind<std::int32_t, D> integers;
    const hn::Rebind<ByteLanes, D> narrow;
    const float byAlpha = weight * float(alphaOf(*pixel));
#if HWY_TARGET == HWY_SCALAR
    (void)integers;
    (void)narrow;
    return hn::Set(d, channel == 3 ? byAlpha : byAlpha * float((*pixel >> (8 * channel)) & 255u));
#else
    (void)channel;
    HWY_ALIGN constexpr float kSigns[4] = {1, 1, 1, -1};
    const auto isAlpha = hn::Lt(hn::Load(d, kSigns), hn::Zero(d));
    const auto values = hn::ConvertTo(d, hn::PromoteTo(integers, hn::LoadU(narrow, bytesOf(pixel))));
    return hn::Mul(hn::Set(d, byAlpha), hn::IfThenElse(isAlpha, hn::Set(d, 1.0f), values));
#endif
}

void SampleWeightedByAlpha(const PixelView& source, const Line& line, const Line& ahead, std::size_t count,
                           float* sums) {
    const hn::CappedTag<float, 4> d;
    Walker walker(source, line), scout(source, ahead);
    Argb edge[4];
    for (std::size_t i = 0; i < count; ++i) {
        const Sample sample = walker.next(edge);
        scout.fetch(1);
        constexpr float kUnit = 1.0f / float(1 << Line::kWeightBits);
        const float right = float(sample.weightX) * kUnit, left = 1.0f - right;
        const float below = float(sample.weightY) * kUnit, above = 1.0f - below;
        for (std::size_t channel = 0; channel < 4; channel += hn::Lanes(d)) {
            const auto upper = hn::Add(weighted(d, sample.upper, channel, left * above),
                                       weighted(d, sample.upper + 1, channel, right * above));
            const auto lower = hn::Add(weighted(d, sample.lower, channel, left * below),
                                       weighted(d, sample.lower + 1, channel, right * below));
            hn::StoreU(hn::Add(upper, lower), d, sums + i * 4 + channel);
        }
    }
}

}  // namespace orvane::sample_rows::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane::sample_rows {

HWY_EXPORT(SampleOpaque);
HWY_EXPORT(SampleWeightedByAlpha);

void sampleOpaque(const PixelView& source, const Line& line, const Line& ahead, std::size_t count,
                  Argb* target) noexcept {
    HWY_DYNAMIC_DISPATCH(SampleOpaque)(source, line, ahead, count, target);
}

void sampleWeightedByAlpha(const PixelView& source, const Line& line, const Line& ahead, std::size_t count,
                           float* sums) noexcept {
    HWY_DYNAMIC_DISPATCH(SampleWeightedByAlpha)(source, line, ahead, count, sums);
}

}  // namespace orvane::sample_rows
#endif  // HWY_ONCE
