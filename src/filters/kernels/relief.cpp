#include "filters/kernels/relief.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/relief.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/map_pixels-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

Argb reliefOf(Argb p, Argb q) {
    const auto half = [](unsigned a, unsigned b) { return (a - b + 255u) / 2u; };
    return makeOpaque(half(redOf(p), redOf(q)), half(greenOf(p), greenOf(q)), half(blueOf(p), blueOf(q)));
}

#if HWY_TARGET != HWY_SCALAR
/// The rounded average of ~p and q is what the relief lacks to 255.
HWY_INLINE PixelVector reliefOf(PixelVector p, PixelVector q) {
    const PixelTag d;
    const ByteTag d8;
    const auto lack = hn::AverageRound(hn::BitCast(d8, hn::Not(p)), hn::BitCast(d8, q));
    return hn::Or(hn::Not(hn::BitCast(d, lack)), hn::Set(d, kOpaque));
}

template <bool kStreamed>
HWY_INLINE std::size_t reliefVectors(const Argb* HWY_RESTRICT row, const Argb* HWY_RESTRICT neighbours,
                                     Argb* HWY_RESTRICT target, std::size_t first, std::size_t end) {
    const PixelTag d;
    for (; first + hn::Lanes(d) <= end; first += hn::Lanes(d)) {
        storePixels<kStreamed>(reliefOf(hn::LoadU(d, row + first), hn::LoadU(d, neighbours + first)),
                               target + first);
    }
    return first;
}
#endif

}  // namespace

/// `row` and the row that its neighbours are in; they are dx to the right, or at the edge.
void reliefRow(const Argb* row, const Argb* neighbourRow, int dx, int width, Argb* target,
               [[maybe_unused]] bool streamed) {
    const auto clamped = [&](int x) {
        return reliefOf(row[x], neighbourRow[std::clamp(x + dx, 0, width - 1)]);
    };
    const int first = std::min(std::max(-dx, 0), width);
    int x = 0;
    while (x < first) target[x] = clamped(x), ++x;
#if HWY_TARGET != HWY_SCALAR
    const int end = std::max(width - std::max(dx, 0), first);
    const int lead = x + static_cast<int>(pixelsBeforeAlignment(target + x, std::size_t(end - x)));
    while (x < lead) target[x] = clamped(x), ++x;
    const Argb* const neighbours = neighbourRow + dx;
    x = static_cast<int>(
        streamed ? reliefVectors<true>(row, neighbours, target, std::size_t(x), std::size_t(end))
                 : reliefVectors<false>(row, neighbours, target, std::size_t(x), std::size_t(end)));
#endif
    while (x < width) target[x] = clamped(x), ++x;
}

void relief(PixelView source, MutablePixelView target, IntPoint offset) {
#if HWY_TARGET == HWY_SCALAR
    const bool streamed = false;
#else
    const bool streamed = source.pixelCount() >= kStreamedPixels;
#endif
    for (int y = 0; y < source.height; ++y) {
        const int neighbourY = std::clamp(y + offset.y, 0, source.height - 1);
        reliefRow(source.row(y), source.row(neighbourY), offset.x, source.width, target.row(y), streamed);
    }
    if (streamed) hwy::FlushStream();
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(relief);

void reliefPixels(PixelView source, MutablePixelView target, IntPoint offset) noexcept {
    HWY_DYNAMIC_DISPATCH(relief)(source, target, offset);
}

}  // namespace orvane
#endif
