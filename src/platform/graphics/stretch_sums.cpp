#include "platform/graphics/stretch_sums.h"

#include <algorithm>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/graphics/stretch_sums.cpp"
#include <hwy/cache_control.h>
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace orvane::stretch_sums::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// Whole pixels per vector wherever there are vectors; the scalar fallback goes channel by channel.
using Floats = hn::ScalableTag<float>;
using OnePixel = hn::CappedTag<float, 4>;
using ByteLanes = std::uint8_t;

// Calls body(tag, i) for consecutive values: whole vectors first, then single pixels.
template <class Body>
HWY_INLINE void forEachVector(std::size_t valueCount, const Body& body) {
    const Floats floats;
    const OnePixel onePixel;
    std::size_t i = 0;
    for (; i + hn::Lanes(floats) <= valueCount; i += hn::Lanes(floats)) body(floats, i);
    for (; i < valueCount; i += hn::Lanes(onePixel)) body(onePixel, i);
}

HWY_INLINE const ByteLanes* bytesOf(const Argb* row) { return reinterpret_cast<const ByteLanes*>(row); }

template <class D>
HWY_INLINE hn::Vec<D> loadBytes(D d, const ByteLanes* bytes) {
    const hn::Rebind<std::int32_t, D> integers;
    const hn::Rebind<ByteLanes, D> narrow;
    return hn::ConvertTo(d, hn::PromoteTo(integers, hn::LoadU(narrow, bytes)));
}

// v * scale, rounded and clamped to a byte.
template <class D>
HWY_INLINE void storeBytes(D d, hn::Vec<D> levels, ByteLanes* bytes) {
    const hn::Rebind<std::int32_t, D> integers;
    const hn::Rebind<ByteLanes, D> narrow;
    const auto rounded = hn::ConvertTo(integers, hn::Add(levels, hn::Set(d, 0.5f)));
    hn::StoreU(hn::DemoteTo(narrow, rounded), narrow, bytes);
}

// Each pixel's alpha in all its lanes, and the lanes that hold alpha themselves.
template <class D>
HWY_INLINE hn::Vec<D> alphaEverywhere(D d, const float* values, std::size_t i) {
#if HWY_TARGET == HWY_SCALAR
    return hn::Set(d, values[i | 3]);
#else
    return hn::Broadcast<3>(hn::LoadU(d, values + i));
#endif
}

template <class D>
HWY_INLINE hn::Mask<D> alphaLanes(D d, std::size_t i) {
#if HWY_TARGET == HWY_SCALAR
    return hn::Lt(hn::Set(d, (i & 3) == 3 ? -1.0f : 1.0f), hn::Zero(d));
#else
    (void)i;
    HWY_ALIGN constexpr float kSigns[4] = {1, 1, 1, -1};
    return hn::Lt(hn::LoadDup128(d, kSigns), hn::Zero(d));
#endif
}

// The pixels with their colours multiplied by their alpha.
template <class D>
HWY_INLINE hn::Vec<D> loadWeightedByAlpha(D d, const ByteLanes* bytes, std::size_t i) {
    const auto values = loadBytes(d, bytes + i);
#if HWY_TARGET == HWY_SCALAR
    const auto alpha = hn::Set(d, float(bytes[i | 3]));
#else
    const auto alpha = hn::Broadcast<3>(values);
#endif
    return hn::Mul(values, hn::IfThenElse(alphaLanes(d, i), hn::Set(d, 1.0f), alpha));
}

// The rows of a pass lie far apart in memory, where hardware does not foresee them, so each pass asks for
// those of the next one, a cache line at a time.
HWY_INLINE void prefetchRows(const Argb* firstRow, std::ptrdiff_t stridePixels, int rowCount,
                             std::size_t byte) {
    if (byte % 64 != 0) return;
    for (int row = 0; row < rowCount; ++row) hwy::Prefetch(bytesOf(firstRow + stridePixels * row) + byte);
}

template <class D>
HWY_INLINE hn::Vec<D> sumOfBytes(D d, const Argb* firstRow, std::ptrdiff_t stridePixels, int rowCount,
                                 std::size_t byte) {
    const hn::Rebind<ByteLanes, D> narrow;
    auto sum = hn::Zero(d);
    for (int row = 0; row < rowCount; ++row) {
        sum =
            hn::Add(sum, hn::PromoteTo(d, hn::LoadU(narrow, bytesOf(firstRow + stridePixels * row) + byte)));
    }
    return sum;
}

template <class D>
HWY_INLINE hn::Vec<D> toFloat(D d, hn::Vec<hn::Rebind<std::uint16_t, D>> sums) {
    return hn::ConvertTo(d, hn::PromoteTo(hn::Rebind<std::int32_t, D>(), sums));
}

constexpr int kRowsPerPass = 4;
constexpr int kRowsPerBatch = 256;  // the bytes of so many rows sum up to 16 bits

// Sums up to kRowsPerBatch rows, a multiple of kRowsPerPass; rowsLeft of the run remain, these included.
HWY_INLINE void sumBatch(const Argb* run, std::ptrdiff_t stridePixels, int rowCount, int rowsLeft,
                         std::size_t count, std::uint16_t* sums) {
    const hn::ScalableTag<std::uint16_t> shorts;
    const hn::CappedTag<std::uint16_t, 4> onePixel;
    std::fill_n(sums, count * 4, std::uint16_t{0});
    for (int row = 0; row < rowCount; row += kRowsPerPass) {
        const Argb* const first = run + stridePixels * row;
        const Argb* const next = first + stridePixels * kRowsPerPass;
        const int nextCount = std::min(rowsLeft - row - kRowsPerPass, kRowsPerPass);
        const auto add = [&](auto d, std::size_t i) HWY_ATTR {
            const auto sum = sumOfBytes(d, first, stridePixels, kRowsPerPass, i);
            hn::StoreU(hn::Add(hn::LoadU(d, sums + i), sum), d, sums + i);
            prefetchRows(next, stridePixels, nextCount, i);
        };
        std::size_t i = 0;
        for (; i + hn::Lanes(shorts) <= count * 4; i += hn::Lanes(shorts)) add(shorts, i);
        for (; i < count * 4; i += hn::Lanes(onePixel)) add(onePixel, i);
    }
}

void SumRowsOpaque(const RowSum& rows, std::size_t count, float* sums) {
    const Argb* run = rows.run;
    int runLength = rows.runLength;
    bool begun = false;
    while (runLength > kRowsPerPass) {
        HWY_ALIGN std::uint16_t batch[kMaxRowLength * 4];
        const int length = std::min(runLength / kRowsPerPass * kRowsPerPass, kRowsPerBatch);
        sumBatch(run, rows.stridePixels, length, runLength, count, batch);
        forEachVector(count * 4, [&](auto d, std::size_t i) HWY_ATTR {
            const auto sum = toFloat(d, hn::LoadU(hn::Rebind<std::uint16_t, decltype(d)>(), batch + i));
            hn::StoreU(begun ? hn::Add(sum, hn::LoadU(d, sums + i)) : sum, d, sums + i);
        });
        begun = true;
        run += rows.stridePixels * length;
        runLength -= length;
    }
    const int rowsAhead = std::min(rows.rowsAhead, kRowsPerPass + 2);
    forEachVector(count * 4, [&](auto d, std::size_t i) HWY_ATTR {
        const hn::Rebind<std::uint16_t, decltype(d)> shorts;
        auto sum = toFloat(d, sumOfBytes(shorts, run, rows.stridePixels, runLength, i));
        if (begun) sum = hn::Add(sum, hn::LoadU(d, sums + i));
        for (int edge = 0; edge < rows.edgeCount; ++edge) {
            const auto values = loadBytes(d, bytesOf(rows.edges[edge]) + i);
            sum = hn::Add(sum, hn::Mul(values, hn::Set(d, rows.weights[edge])));
        }
        hn::StoreU(sum, d, sums + i);
        prefetchRows(rows.ahead, rows.stridePixels, rowsAhead, i);
    });
}

void SumRowsWeightedByAlpha(const RowSum& rows, std::size_t count, float* sums) {
    const int rowsAhead = std::min(rows.rowsAhead, rows.runLength + 2);
    forEachVector(count * 4, [&](auto d, std::size_t i) HWY_ATTR {
        auto sum = hn::Zero(d);
        for (int row = 0; row < rows.runLength; ++row) {
            sum = hn::Add(sum, loadWeightedByAlpha(d, bytesOf(rows.run + rows.stridePixels * row), i));
        }
        for (int edge = 0; edge < rows.edgeCount; ++edge) {
            const auto values = loadWeightedByAlpha(d, bytesOf(rows.edges[edge]), i);
            sum = hn::Add(sum, hn::Mul(values, hn::Set(d, rows.weights[edge])));
        }
        hn::StoreU(sum, d, sums + i);
        prefetchRows(rows.ahead, rows.stridePixels, rowsAhead, i);
    });
}

void SumColumns(const float* sums, const Footprint* footprints, int whole, std::size_t count, float* target) {
    const OnePixel d;
    for (std::size_t pixel = 0; pixel < count; ++pixel) {
        const Footprint& f = footprints[pixel];
        for (std::size_t channel = 0; channel < 4; channel += hn::Lanes(d)) {
            const float* from = sums + std::size_t(f.first) * 4 + channel;
            auto sum = hn::Mul(hn::LoadU(d, from), hn::Set(d, f.head));
            for (int i = 0; i < whole; ++i) sum = hn::Add(sum, hn::LoadU(d, from += 4));
            sum = hn::Add(sum, hn::Mul(hn::LoadU(d, from + 4), hn::Set(d, f.tail)));
            sum = hn::Add(sum, hn::Mul(hn::LoadU(d, from + 8), hn::Set(d, f.beyond)));
            hn::StoreU(sum, d, target + pixel * 4 + channel);
        }
    }
}

void ResolveOpaque(const float* sums, float scale, std::size_t count, Argb* target) {
    ByteLanes* bytes = reinterpret_cast<ByteLanes*>(target);
    forEachVector(count * 4, [&](auto d, std::size_t i) HWY_ATTR {
        storeBytes(d, hn::Mul(hn::LoadU(d, sums + i), hn::Set(d, scale)), bytes + i);
    });
}

void ResolveWeightedByAlpha(const float* sums, float scale, std::size_t count, Argb* target) {
    ByteLanes* bytes = reinterpret_cast<ByteLanes*>(target);
    forEachVector(count * 4, [&](auto d, std::size_t i) HWY_ATTR {
        const auto sum = hn::LoadU(d, sums + i);
        const auto alphaSum = alphaEverywhere(d, sums, i);
        const auto alpha = hn::Mul(alphaSum, hn::Set(d, scale));
        const auto visible = hn::Ge(alpha, hn::Set(d, 0.5f));
        const auto colour = hn::Div(sum, hn::IfThenElse(visible, alphaSum, hn::Set(d, 1.0f)));
        const auto levels = hn::IfThenElse(alphaLanes(d, i), alpha, colour);
        storeBytes(d, hn::IfThenElseZero(visible, levels), bytes + i);
    });
}

}  // namespace orvane::stretch_sums::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane::stretch_sums {

HWY_EXPORT(SumRowsOpaque);
HWY_EXPORT(SumRowsWeightedByAlpha);
HWY_EXPORT(SumColumns);
HWY_EXPORT(ResolveOpaque);
HWY_EXPORT(ResolveWeightedByAlpha);

void sumRowsOpaque(const RowSum& rows, std::size_t count, float* sums) noexcept {
    HWY_DYNAMIC_DISPATCH(SumRowsOpaque)(rows, count, sums);
}

void sumRowsWeightedByAlpha(const RowSum& rows, std::size_t count, float* sums) noexcept {
    HWY_DYNAMIC_DISPATCH(SumRowsWeightedByAlpha)(rows, count, sums);
}

void sumColumns(const float* sums, const Footprint* footprints, int whole, std::size_t count,
                float* target) noexcept {
    HWY_DYNAMIC_DISPATCH(SumColumns)(sums, footprints, whole, count, target);
}

void resolveOpaque(const float* sums, float scale, std::size_t count, Argb* target) noexcept {
    HWY_DYNAMIC_DISPATCH(ResolveOpaque)(sums, scale, count, target);
}

void resolveWeightedByAlpha(const float* sums, float scale, std::size_t count, Argb* target) noexcept {
    HWY_DYNAMIC_DISPATCH(ResolveWeightedByAlpha)(sums, scale, count, target);
}

}  // namespace orvane::stretch_sums
#endif  // HWY_ONCE
