#include "filters/kernels/fade_to_grey.h"

#include <cmath>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/fade_to_grey.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/luma-inl.h"
#include "filters/kernels/map_pixels-inl.h"
#include "filters/kernels/row_writer-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

constexpr LumaOrder kOrder = LumaOrder::BlueRedGreen;

struct Grey {
    Argb pixel(Argb p) const {
        const auto luma = static_cast<unsigned>(lumaOf<kOrder>(p));
        return makeOpaque(luma, luma, luma);
    }
#if HWY_TARGET != HWY_SCALAR
    HWY_INLINE PixelVector words(PixelVector p) const {
        const auto luma = hn::BitCast(PixelTag(), lumaOf<kOrder>(p));
        const auto greys = hn::Mul(luma, hn::Set(PixelTag(), 0x00010101u));
        return hn::Or(greys, hn::Set(PixelTag(), kOpaque));
    }
#endif
};

/// One row of the rim.
struct Rim {
    const FocusCircle& circle;
    int y;

    Argb pixel(Argb p, int x) const {
        const double t = (double(circle.distance(x, y)) - circle.radius) / circle.rim;
        const int luma = lumaOf<kOrder>(p);
        const auto faded = [&](unsigned channel) {
            const int c = static_cast<int>(channel);
            return static_cast<unsigned>((luma - c) * t + c);
        };
        return makeOpaque(faded(redOf(p)), faded(greenOf(p)), faded(blueOf(p)));
    }

#if HWY_TARGET != HWY_SCALAR && HWY_HAVE_FLOAT64
    using HalfTag = hn::Half<IntTag>;
    using DoubleTag = hn::Rebind<double, HalfTag>;

    HWY_INLINE hn::Vec<DoubleTag> fading(int x) const {
        const DoubleTag df;
        const double dy = double(circle.centreY) - y;
        const auto dx = hn::Sub(hn::Set(df, double(circle.centreX) - x), hn::Iota(df, 0.0));
        const auto square = hn::Add(hn::Mul(dx, dx), hn::Set(df, dy * dy));
        const auto distance = hn::Trunc(hn::Sqrt(square));
        return hn::Div(hn::Sub(distance, hn::Set(df, double(circle.radius))),
                       hn::Set(df, double(circle.rim)));
    }

    HWY_INLINE PixelVector words(PixelVector p, int x) const {
        const PixelTag d;
        const IntTag di;
        const HalfTag dh;
        const DoubleTag df;
        const auto luma = lumaOf<kOrder>(p);
        const auto lower = fading(x), upper = fading(x + int(hn::Lanes(dh)));
        const auto faded = [&](IntVector channel) HWY_ATTR {
            const auto difference = hn::Sub(luma, channel);
            const auto half = [&](auto toLuma, auto c, auto t) HWY_ATTR {
                return hn::DemoteTo(dh, hn::Add(hn::Mul(hn::PromoteTo(df, toLuma), t), hn::PromoteTo(df, c)));
            };
            return hn::BitCast(
                d, hn::Combine(di, half(hn::UpperHalf(dh, difference), hn::UpperHalf(dh, channel), upper),
                               half(hn::LowerHalf(dh, difference), hn::LowerHalf(dh, channel), lower)));
        };
        const auto red = faded(channelOf<16>(p)), green = faded(channelOf<8>(p));
        return hn::Or(hn::Or(hn::ShiftLeft<16>(red), hn::ShiftLeft<8>(green)),
                      hn::Or(faded(channelOf<0>(p)), hn::Set(d, kOpaque)));
    }
#endif

    void run(const Argb* source, Argb* target, int begin, int end) const {
        int x = begin;
#if HWY_TARGET != HWY_SCALAR && HWY_HAVE_FLOAT64
        const PixelTag d;
        const int lanes = int(hn::Lanes(d));
        for (; end - x >= lanes; x += lanes) {
            hn::StoreU(words(hn::LoadU(d, source + x), x), d, target + x);
        }
#endif
        for (; x < end; ++x) target[x] = pixel(source[x], x);
    }
};

}  // namespace

void fade(PixelView source, MutablePixelView target, const FocusCircle& circle) {
    RowWriter writer(target);
    Argb* const words = reinterpret_cast<Argb*>(writer.bytes());
    for (int y = 0; y < source.height; ++y) {
        const Argb* const row = source.row(y);
        const FocusCircle::Row parts = circle.row(y, source.width);
        const Rim rim{circle, y};
        const auto turnGrey = [&](int begin, int end) {
            mapPixels(row + begin, words + begin, std::size_t(end - begin), WordWise<Grey>());
        };
        turnGrey(0, parts.rimBegin);
        rim.run(row, words, parts.rimBegin, parts.insideBegin);
        std::copy(row + parts.insideBegin, row + parts.insideEnd, words + parts.insideBegin);
        rim.run(row, words, parts.insideEnd, parts.rimEnd);
        turnGrey(parts.rimEnd, source.width);
        writer.writeTo(y);
    }
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(fade);

void fadeToGrey(PixelView source, MutablePixelView target, const FocusCircle& circle) {
    HWY_DYNAMIC_DISPATCH(fade)(source, target, circle);
}

}  // namespace orvane
#endif
