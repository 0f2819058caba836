#include "filters/kernels/convolve_3x3.h"

#include <algorithm>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/convolve_3x3.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/window_rows-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

HWY_INLINE LevelVector clampedLevels(ShortVector sums, std::size_t firstByte) {
    return withOpaqueAlpha(hn::DemoteTo(LevelTag(), sums), firstByte);
}

struct Sharpen {
    HWY_INLINE LevelVector operator()(const Window<1>& window, std::size_t firstByte) const {
        const auto diagonals = hn::Add(hn::Add(window.shorts(-1, -1), window.shorts(1, -1)),
                                       hn::Add(window.shorts(-1, 1), window.shorts(1, 1)));
        // A shift rounds down where a division rounds toward zero, but what is below zero becomes 0 anyway.
        const auto eightfold = hn::ShiftLeft<3>(window.shorts(0, 0));
        return clampedLevels(hn::ShiftRight<2>(hn::Sub(eightfold, diagonals)), firstByte);
    }
};

/// Maximum less minimum of the window, channel by channel.
HWY_INLINE LevelVector channelRanges(const Window<1>& window) {
    auto lowest = window.levels(0, 0), highest = lowest;
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            const auto levels = window.levels(dx, dy);
            lowest = hn::Min(lowest, levels);
            highest = hn::Max(highest, levels);
        }
    }
    return hn::Sub(highest, lowest);
}

/// The smallest of the three channel ranges, in all channels of the pixel.
HWY_INLINE LevelVector smallestRange(const Window<1>& window, [[maybe_unused]] std::size_t firstByte) {
#if HWY_TARGET == HWY_SCALAR
    const Window<1> pixel = window.movedBy(std::size_t{0} - firstByte % kPixelBytes);
    return hn::Min(hn::Min(channelRanges(pixel), channelRanges(pixel.movedBy(1))),
                   channelRanges(pixel.movedBy(2)));
#else
    const hn::Repartition<Argb, LevelTag> pixels;
    const auto withNeighbours = [&](auto rotated, LevelVector levels)
                                    HWY_ATTR { return hn::Min(levels, hn::BitCast(LevelTag(), rotated)); };
    const auto ranges = withOpaqueAlpha(channelRanges(window), firstByte);
    const auto pairs = withNeighbours(hn::RotateRight<8>(hn::BitCast(pixels, ranges)), ranges);
    return withNeighbours(hn::RotateRight<16>(hn::BitCast(pixels, pairs)), pairs);
#endif
}

struct SharpenContrasted {
    std::uint8_t level;

    HWY_INLINE LevelVector operator()(const Window<1>& window, std::size_t firstByte) const {
        const auto range = smallestRange(window, firstByte);
        const auto contrasted = hn::Eq(hn::Max(range, hn::Set(LevelTag(), level)), range);
        return hn::IfThenElse(contrasted, Sharpen()(window, firstByte), window.levels(0, 0));
    }
};

struct Laplace {
    HWY_INLINE LevelVector operator()(const Window<1>& window, std::size_t firstByte) const {
        const auto sides = hn::Add(hn::Add(window.shorts(0, -1), window.shorts(-1, 0)),
                                   hn::Add(window.shorts(1, 0), window.shorts(0, 1)));
        return clampedLevels(hn::Sub(hn::ShiftLeft<2>(window.shorts(0, 0)), sides), firstByte);
    }
};

struct Outline {
    HWY_INLINE LevelVector operator()(const Window<1>& window, std::size_t firstByte) const {
        auto all = hn::Zero(ShortTag());
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) all = hn::Add(all, window.shorts(dx, dy));
        }
        const auto centre = window.shorts(0, 0);
        return clampedLevels(hn::Sub(hn::Add(hn::ShiftLeft<3>(centre), centre), all), firstByte);
    }
};

/// One side of the window less the other one, the middle of a side counting twice.
template <Rising kRising>
struct Gradient {
    static constexpr bool kHorizontal = kRising == Rising::Right || kRising == Rising::Left;
    static constexpr int kSign = kRising == Rising::Right || kRising == Rising::Down ? 1 : -1;

    static HWY_INLINE ShortVector side(const Window<1>& window, int place) {
        const auto at = [&](int along) HWY_ATTR {
            return kHorizontal ? window.shorts(place, along) : window.shorts(along, place);
        };
        return hn::Add(hn::Add(at(-1), at(1)), hn::ShiftLeft<1>(at(0)));
    }
    HWY_INLINE LevelVector operator()(const Window<1>& window, std::size_t firstByte) const {
        return clampedLevels(hn::Sub(side(window, kSign), side(window, -kSign)), firstByte);
    }
};

}  // namespace

void sharpen(PixelView source, MutablePixelView target) { forEachWindow<1>(source, target, Sharpen()); }

void sharpenContrasted(PixelView source, MutablePixelView target, std::uint8_t level) {
    forEachWindow<1>(source, target, SharpenContrasted{level});
}

void laplace(PixelView source, MutablePixelView target) { forEachWindow<1>(source, target, Laplace()); }

void outline(PixelView source, MutablePixelView target) { forEachWindow<1>(source, target, Outline()); }

void gradient(PixelView source, MutablePixelView target, Rising rising) {
    switch (rising) {
        case Rising::Right:
            return forEachWindow<1>(source, target, Gradient<Rising::Right>());
        case Rising::Left:
            return forEachWindow<1>(source, target, Gradient<Rising::Left>());
        case Rising::Down:
            return forEachWindow<1>(source, target, Gradient<Rising::Down>());
        case Rising::Up:
            return forEachWindow<1>(source, target, Gradient<Rising::Up>());
    }
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(sharpen);
HWY_EXPORT(sharpenContrasted);
HWY_EXPORT(laplace);
HWY_EXPORT(outline);
HWY_EXPORT(gradient);

void sharpenPixels(PixelView source, MutablePixelView target) noexcept {
    HWY_DYNAMIC_DISPATCH(sharpen)(source, target);
}

void sharpenContrastedPixels(PixelView source, MutablePixelView target, int level) noexcept {
    if (level <= 0) {
        sharpenPixels(source, target);
    } else if (level > 255) {
        for (int y = 0; y < source.height; ++y) std::copy_n(source.row(y), source.width, target.row(y));
    } else {
        HWY_DYNAMIC_DISPATCH(sharpenContrasted)(source, target, static_cast<std::uint8_t>(level));
    }
}

void laplacePixels(PixelView source, MutablePixelView target) noexcept {
    HWY_DYNAMIC_DISPATCH(laplace)(source, target);
}

void outlinePixels(PixelView source, MutablePixelView target) noexcept {
    HWY_DYNAMIC_DISPATCH(outline)(source, target);
}

void gradientPixels(PixelView source, MutablePixelView target, Rising rising) noexcept {
    HWY_DYNAMIC_DISPATCH(gradient)(source, target, rising);
}

}  // namespace orvane
#endif
