#include "filters/kernels/displace_pixels.h"

#include <algorithm>
#include <vector>

#include "platform/graphics/source_over.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/displace_pixels.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/row_writer-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

/// Walks down the picture by rows: each column has a stream of its own, a column's draws ahead of the one to
/// its left.
class Displacement {
 public:
    Displacement(PixelView source, int reach, const RandomStream& stream)
        : source_(source),
          reach_(reach),
          scale_((2.0 * reach + 1.0) * 3.051850947599719e-5),  // 1 / 32767
          states_(std::size_t(source.width) + kSlack) {
        const RandomStream::Jump column = RandomStream::jump(kDrawsPerPixel * std::uint64_t(source.height));
        std::uint32_t state = stream.state();
        for (std::uint32_t& first : states_) {
            first = state;
            state = column.apply(state);
        }
    }

    /// The displaced words of row y, which is the row after the one before; may write a vector too much.
    void drawRow(int y, Argb* words) {
        int x = 0;
#if HWY_TARGET != HWY_SCALAR && HWY_HAVE_FLOAT64
        const PixelTag d;
        const IntTag di;
        const auto stride = hn::Set(di, static_cast<std::int32_t>(source_.stridePixels));
        for (; x < source_.width; x += int(hn::Lanes(d))) {
            const auto first = next(hn::LoadU(d, &states_[std::size_t(x)])), second = next(first);
            hn::StoreU(second, d, &states_[std::size_t(x)]);
            const auto column = placed(first, x, 1.0, source_.width);
            const auto row = placed(second, y, 0.0, source_.height);
            const auto index = hn::Add(hn::Mul(row, stride), column);
            hn::StoreU(hn::GatherIndex(d, source_.pixels, index), d, words + x);
        }
#endif
        for (; x < source_.width; ++x) {
            RandomStream stream(states_[std::size_t(x)]);
            const int column = placed(stream.next(), x, source_.width);
            words[x] = source_.at(column, placed(stream.next(), y, source_.height));
            states_[std::size_t(x)] = stream.state();
        }
    }

    static constexpr std::uint64_t kDrawsPerPixel = 2;

 private:
    static constexpr std::size_t kSlack = 16;

    [[nodiscard]] int placed(int draw, int place, int length) const {
        const double moved = static_cast<double>(static_cast<std::int64_t>(draw * scale_) - reach_ + place);
        return static_cast<int>(std::clamp(moved, 0.0, length - 1.0));
    }

#if HWY_TARGET != HWY_SCALAR && HWY_HAVE_FLOAT64
    using IntTag = hn::RebindToSigned<PixelTag>;
    using HalfTag = hn::Half<IntTag>;
    using DoubleTag = hn::Rebind<double, HalfTag>;

    static HWY_INLINE PixelVector next(PixelVector states) {
        const PixelTag d;
        return hn::Add(hn::Mul(states, hn::Set(d, RandomStream::kMultiplier)),
                       hn::Set(d, RandomStream::kIncrement));
    }

    /// Where the draws of these states move `place`, `place` + step and so on.
    HWY_INLINE hn::Vec<IntTag> placed(PixelVector states, int place, double step, int length) const {
        const PixelTag d;
        const IntTag di;
        const HalfTag dh;
        const DoubleTag df;
        const auto draws = hn::BitCast(di, hn::And(hn::ShiftRight<16>(states), hn::Set(d, 0x7FFFu)));
        const auto half = [&](auto draw, double first) HWY_ATTR {
            const auto offset = hn::Trunc(hn::Mul(hn::PromoteTo(df, draw), hn::Set(df, scale_)));
            const auto origin = hn::Add(hn::Mul(hn::Iota(df, 0.0), hn::Set(df, step)), hn::Set(df, first));
            const auto moved = hn::Add(offset, origin);
            return hn::DemoteTo(dh, hn::Min(hn::Max(moved, hn::Zero(df)), hn::Set(df, length - 1.0)));
        };
        const double origin = double(place) - reach_;
        return hn::Combine(di, half(hn::UpperHalf(dh, draws), origin + step * double(hn::Lanes(dh))),
                           half(hn::LowerHalf(dh, draws), origin));
    }
#endif

    PixelView source_;
    int reach_;
    double scale_;
    std::vector<std::uint32_t> states_;
};

[[nodiscard]] bool allOpaque(const Argb* words, int count) {
    Argb common = kOpaque;
    for (int x = 0; x < count; ++x) common &= words[x];
    return common == kOpaque;
}

}  // namespace

void displace(PixelView source, MutablePixelView target, int reach, RandomStream& stream) {
    Displacement displacement(source, reach, stream);
    RowWriter writer(target);
    Argb* const words = reinterpret_cast<Argb*>(writer.bytes());
    for (int y = 0; y < source.height; ++y) {
        displacement.drawRow(y, words);
        if (allOpaque(words, source.width)) {
            writer.writeTo(y);
        } else {
            sourceOver(words, source.row(y), target.row(y), std::size_t(source.width));
        }
    }
    stream.skip(Displacement::kDrawsPerPixel * source.pixelCount());
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(displace);

void displacePixels(PixelView source, MutablePixelView target, int reach, RandomStream& stream) {
    HWY_DYNAMIC_DISPATCH(displace)(source, target, reach, stream);
}

}  // namespace orvane
#endif
