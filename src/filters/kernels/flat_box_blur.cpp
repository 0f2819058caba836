#include "filters/kernels/flat_box_blur.h"

#include <algorithm>

#include "filters/kernels/box_blur.h"
#include "filters/kernels/window_extremes.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/flat_box_blur.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/box_means-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

bool isFlat(Argb ranges, unsigned level) {
    return std::min({redOf(ranges), greenOf(ranges), blueOf(ranges)}) <= level;
}

/// Puts the source's words back into a row of means where the window is not flat.
class UnflatPixels {
 public:
    UnflatPixels(PixelView source, int radius, int level)
        : source_(source),
          level_(static_cast<std::uint8_t>(level)),
          ranges_(source, radius, 0, source.width) {}

    void operator()(int y, std::uint8_t* results) {
        const Argb* HWY_RESTRICT ranges = ranges_.nextRow();
        const Argb* HWY_RESTRICT row = source_.row(y);
        auto* HWY_RESTRICT pixels = reinterpret_cast<Argb*>(results);
        const auto count = std::size_t(source_.width);
        std::size_t i = 0;
#if HWY_TARGET != HWY_SCALAR
        const PixelTag d;
        const ByteTag d8;
        const auto level = hn::Set(d8, level_);
        for (; i + hn::Lanes(d) <= count; i += hn::Lanes(d)) {
            // Alpha takes no part in the smallest range, which the rotations bring to every byte.
            const auto all = hn::Or(hn::LoadU(d, ranges + i), hn::Set(d, kOpaque));
            const auto pairs = hn::BitCast(d, smaller(all, hn::RotateRight<8>(all)));
            const auto smallest = smaller(pairs, hn::RotateRight<16>(pairs));
            const auto flat = hn::Eq(hn::Min(smallest, level), smallest);
            const auto mean = hn::BitCast(d8, hn::LoadU(d, pixels + i));
            const auto source = hn::BitCast(d8, hn::LoadU(d, row + i));
            hn::StoreU(hn::BitCast(d, hn::IfThenElse(flat, mean, source)), d, pixels + i);
        }
#endif
        for (; i < count; ++i) pixels[i] = isFlat(ranges[i], level_) ? pixels[i] : row[i];
    }

 private:
#if HWY_TARGET != HWY_SCALAR
    static HWY_INLINE ByteVector smaller(PixelVector a, PixelVector b) {
        return hn::Min(hn::BitCast(ByteTag(), a), hn::BitCast(ByteTag(), b));
    }
#endif

    PixelView source_;
    std::uint8_t level_;
    LocalRangeRows ranges_;
};

}  // namespace

void blurFlat(PixelView source, MutablePixelView target, int radius, int level) {
    forEachBoxMean(source, target, radius, UnflatPixels(source, radius, level));
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(blurFlat);

void blurFlatPixels(PixelView source, MutablePixelView target, int radius, int level) {
    if (level >= 255) {
        centredBoxPixels(source, target, 1, radius);
    } else if (level < 0) {
        for (int y = 0; y < source.height; ++y) std::copy_n(source.row(y), source.width, target.row(y));
    } else {
        HWY_DYNAMIC_DISPATCH(blurFlat)(source, target, radius, level);
    }
}

}  // namespace orvane
#endif
