#include "filters/kernels/twirl_pixels.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/twirl_pixels.cpp"
#include <hwy/cache_control.h>
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include <algorithm>
#include <cstdint>

#include "filters/kernels/twist.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

#if HWY_HAVE_FLOAT64

using Tag = hn::ScalableTag<double>;
using Vector = hn::Vec<Tag>;

// Sine and cosine of angles up to 2^26, wrong by less than 1e-11.
HWY_INLINE void sineAndCosine(Vector angle, Vector& sine, Vector& cosine) {
    const Tag d;
    const auto half = hn::Set(d, 0.5), one = hn::Set(d, 1.0);
    const auto isOdd = [&](Vector whole) HWY_ATTR {
        return hn::Ne(hn::Sub(whole, hn::Floor(hn::Mul(whole, half))), hn::Floor(hn::Mul(whole, half)));
    };
    // The quarter turns go first, a right angle in three parts. The first two have 27 bits, so that their
    // products with a whole number below 2^26 are exact.
    const auto quarters = hn::Round(hn::Mul(angle, hn::Set(d, 0.63661977236758134308)));
    auto rest = hn::Sub(angle, hn::Mul(quarters, hn::Set(d, 0x1.921fb54p+0)));
    rest = hn::Sub(rest, hn::Mul(quarters, hn::Set(d, 0x1.10b461p-30)));
    rest = hn::Sub(rest, hn::Mul(quarters, hn::Set(d, 0x1.a62633145c06ep-58)));

    // The power series, over at most half a right angle.
    const auto square = hn::Mul(rest, rest);
    const auto series = [&](double next, auto... more) HWY_ATTR {
        Vector sum = hn::Set(d, next);
        ((sum = hn::Add(hn::Mul(sum, square), hn::Set(d, more))), ...);
        return sum;
    };
    const auto sineOfRest =
        hn::Mul(rest, series(-1.0 / 39916800, 1.0 / 362880, -1.0 / 5040, 1.0 / 120, -1.0 / 6, 1.0));
    const auto cosineOfRest =
        series(1.0 / 479001600, -1.0 / 3628800, 1.0 / 40320, -1.0 / 720, 1.0 / 24, -0.5, 1.0);

    const auto odd = isOdd(quarters), upper = isOdd(hn::Floor(hn::Mul(quarters, half)));
    const auto minus = hn::Set(d, -1.0);
    sine = hn::Mul(hn::IfThenElse(odd, cosineOfRest, sineOfRest), hn::IfThenElse(upper, minus, one));
    cosine = hn::Mul(hn::IfThenElse(odd, sineOfRest, cosineOfRest),
                     hn::IfThenElse(hn::Xor(odd, upper), minus, one));
}

#endif

// A strip of columns at equal distances to the left and to the right of the centre. Four pixels share a
// distance, and with it the angle, its sine and its cosine.
class TwirlStrip {
 public:
    TwirlStrip(PixelView source, MutablePixelView target, const Twist& twist, Argb outside)
        : source_(source), target_(target), twist_(twist), outside_(outside) {}

    // The most columns of a strip to either side. What a few rows of it read stays in the nearest cache,
    // however they are turned.
    static constexpr int kColumns = 64;

    void run(int firstColumn, int count) {
        findPlaces(firstColumn, count, 0, places_[0]);
        for (int row = 0; row <= twist_.centreY; ++row) {
            Places& next = places_[(row + 1) % 2];
            findPlaces(firstColumn, count, row + 1, next);
            askFor(next, count);
            const Places& places = places_[row % 2];
            for (int below = 0; below <= 1; ++below) {
                const int y = below != 0 ? twist_.centreY + row : twist_.centreY - row;
                if (y >= target_.height) continue;
                fetch(places.rows[below][0], firstColumn, count, y, -1);
                fetch(places.rows[below][1], firstColumn, count, y, 1);
            }
        }
    }

 private:
    struct Places {
        HWY_ALIGN std::int32_t rows[2][2][kColumns];  // [above, below][left, right]
    };

#if HWY_HAVE_FLOAT64
    // The places of the columns firstColumn.. of the rows above and below, all distances from the centre.
    HWY_NOINLINE void findPlaces(int firstColumn, int count, int row, Places& places) const {
        const Tag d;
        const int lanes = int(hn::Lanes(d));
        const auto v = hn::Set(d, double(row));
        const auto centreX = hn::Set(d, double(twist_.centreX)), centreY = hn::Set(d, double(twist_.centreY));
        for (int i = 0; i < count; i += lanes) {
            const auto u = hn::Iota(d, double(firstColumn + i));
            const auto r = hn::Sqrt(hn::Add(hn::Mul(u, u), hn::Mul(v, v)));
            const auto angle = hn::Mul(hn::Mul(r, hn::Set(d, twist_.perPixel)), hn::Set(d, Twist::kRadians));
            Vector sine, cosine;
            sineAndCosine(angle, sine, cosine);
            const auto uc = hn::Mul(u, cosine), us = hn::Mul(u, sine);
            const auto vc = hn::Mul(v, cosine), vs = hn::Mul(v, sine);
            const auto left = hn::Sub(centreX, uc), right = hn::Add(centreX, uc);
            const auto leftY = hn::Sub(centreY, us), rightY = hn::Add(centreY, us);
            storePlaces(hn::Add(left, vs), hn::Sub(leftY, vc), places.rows[0][0] + i);
            storePlaces(hn::Add(right, vs), hn::Sub(rightY, vc), places.rows[0][1] + i);
            storePlaces(hn::Sub(left, vs), hn::Add(leftY, vc), places.rows[1][0] + i);
            storePlaces(hn::Sub(right, vs), hn::Add(rightY, vc), places.rows[1][1] + i);
        }
    }

    HWY_INLINE void storePlaces(Vector x, Vector y, std::int32_t* places) const {
        const Tag d;
        const hn::Rebind<std::int32_t, Tag> d32;
        const auto half = hn::Set(d, 0.5);
        const auto wholeX = hn::Trunc(x), wholeY = hn::Trunc(y);
        // How far the fraction is from the middle between two whole numbers: near 0.5 the truncation hangs on
        // the last bits of sine and cosine.
        const auto fromMiddle = hn::Max(hn::Abs(hn::Sub(hn::Abs(hn::Sub(x, wholeX)), half)),
                                        hn::Abs(hn::Sub(hn::Abs(hn::Sub(y, wholeY)), half)));
        const auto certain = hn::Lt(fromMiddle, hn::Set(d, certainty_));
        const auto minus = hn::Set(d, -1.0);
        const auto inside = hn::And(hn::And(hn::Gt(x, minus), hn::Lt(x, hn::Set(d, double(source_.width)))),
                                    hn::And(hn::Gt(y, minus), hn::Lt(y, hn::Set(d, double(source_.height)))));
        const auto place = hn::Add(hn::Mul(wholeY, hn::Set(d, double(source_.stridePixels))), wholeX);
        const auto found = hn::IfThenElse(certain, hn::IfThenElse(inside, place, minus),
                                          hn::Set(d, double(Twist::kUncertain)));
        hn::StoreU(hn::DemoteTo(d32, found), d32, places);
    }
#else
    void findPlaces(int, int count, int, Places& places) const {
        for (auto& half : places.rows) {
            for (auto& row : half) std::fill(row, row + count, int(Twist::kUncertain));
        }
    }
#endif

    // Brings pixels closer that the next row will read; the processor cannot guess them. Inlined by force,
    // because g++ takes a function that does nothing else for one without effects, and drops the call.
    HWY_INLINE void askFor(const Places& places, int count) const {
        for (int i = 0; i < count; i += 2) {
            for (const auto& half : places.rows) {
                hwy::Prefetch(source_.pixels + std::max(half[0][i], 0));
                hwy::Prefetch(source_.pixels + std::max(half[1][i], 0));
            }
        }
    }

    // Reads the pixels from their places to one side (-1 left, 1 right) of the centre.
    void fetch(const std::int32_t* places, int firstColumn, int count, int y, int side) const {
        const int end = std::min(count, side < 0 ? count : target_.width - twist_.centreX - firstColumn);
        const Argb* const source = source_.pixels;
        Argb* target = target_.row(y) + twist_.centreX + side * firstColumn;
        for (int i = 0; i < end; ++i, target += side) {
            int place = places[i];
            if (HWY_UNLIKELY(place == Twist::kUncertain)) {
                place = twist_.placeOf(source_, side * (firstColumn + i), y - twist_.centreY);
            }
            *target = place < 0 ? outside_ : source[place];
        }
    }

    PixelView source_;
    MutablePixelView target_;
    Twist twist_;
    Argb outside_;
    // Coordinates are wrong by sine's and cosine's error times the longest offset, and by little more.
    double certainty_ = 0.5 - 1e-10 * (source_.width + double(source_.height));
    Places places_[2];  // of this row and the next
};

}  // namespace

void twirlPixels(PixelView source, MutablePixelView target, int degrees, Argb outside) {
    const Twist twist(source, degrees);
    TwirlStrip strip(source, target, twist, outside);
    for (int column = 0; column <= twist.centreX; column += TwirlStrip::kColumns) {
        strip.run(column, std::min(TwirlStrip::kColumns, twist.centreX + 1 - column));
    }
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(twirlPixels);

void twirlPixels(PixelView source, MutablePixelView target, int degrees, Argb outside) noexcept {
    HWY_DYNAMIC_DISPATCH(twirlPixels)(source, target, degrees, outside);
}

}  // namespace orvane
#endif
