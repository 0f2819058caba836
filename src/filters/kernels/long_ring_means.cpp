#include "filters/kernels/long_ring_means.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/long_ring_means.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#ifndef ORVANE_FILTERS_KERNELS_LONG_RING_MEANS_ONCE
#define ORVANE_FILTERS_KERNELS_LONG_RING_MEANS_ONCE
namespace orvane {
namespace {

struct ChannelSums {
    std::int64_t blue = 0, green = 0, red = 0;

    void add(const ChannelSums& other, std::int64_t times = 1) {
        blue += other.blue * times;
        green += other.green * times;
        red += other.red * times;
    }
    void add(Argb pixel, std::int64_t times = 1) {
        add({std::int64_t{blueOf(pixel)}, std::int64_t{greenOf(pixel)}, std::int64_t{redOf(pixel)}}, times);
    }
};

/// A place, along the longer side of the picture and across.
struct Place {
    std::int64_t along = 0, across = 0;
};

/// One of the four points of a ring straight left of the centre, above, to the right and below. The points
/// next to it are counted clockwise, those before it below 0. A quarter of the ring goes with each.
struct Axis {
    bool isAlong;  ///< the point lies along the picture
    int signAlong, signAcross;
};
constexpr Axis kWideAxes[] = {{true, -1, -1}, {false, 1, -1}, {true, 1, 1}, {false, -1, 1}};
constexpr Axis kTallAxes[] = {{false, -1, -1}, {true, -1, 1}, {false, 1, 1}, {true, 1, -1}};

/// The eighth of a ring (see DigitalRing) next to an axis: its points are at the distances
/// across(t) >= t from the centre, t = 1, 2, ..., count.
class RingEighth {
 public:
    explicit RingEighth(int radius) : radius_(radius) {
        count_ = static_cast<std::int64_t>(radius * 0.70710678118654752);
        while (across(count_ + 1) >= count_ + 1) ++count_;
        while (across(count_) < count_) --count_;
        endsOnDiagonal_ = across(count_) == count_;
    }
    [[nodiscard]] int radius() const { return radius_; }
    [[nodiscard]] std::int64_t count() const { return count_; }
    /// The same without the point on the diagonal, which the other eighth has.
    [[nodiscard]] std::int64_t mirroredCount() const { return count_ - (endsOnDiagonal_ ? 1 : 0); }
    [[nodiscard]] std::int64_t quarter() const { return count_ + mirroredCount() + 1; }

    /// The largest a with a * a - a < radius^2 - t * t; the radius for t = 0.
    [[nodiscard]] std::int64_t across(std::int64_t t) const {
        const std::int64_t rest = std::int64_t{radius_} * radius_ - t * t;
        if (t == 0 || rest <= 0) return t == 0 ? radius_ : 0;
        auto a = static_cast<std::int64_t>(0.5 + std::sqrt(double(rest)));
        while (a * a - a >= rest) --a;
        while ((a + 1) * a < rest) ++a;
        return a;
    }
    /// How many points are at least this far across, up to count().
    [[nodiscard]] std::int64_t reaching(std::int64_t a) const {
        const std::int64_t rest = std::int64_t{radius_} * radius_ - a * a + a - 1;
        return rest < 0 ? 0 : std::min(count_, static_cast<std::int64_t>(std::sqrt(double(rest))));
    }

 private:
    int radius_;
    std::int64_t count_;
    bool endsOnDiagonal_;
};

}  // namespace
}  // namespace orvane
#endif

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

/// How many points of an eighth are at least so far across, for many distances.
class Reaching {
 public:
    explicit Reaching(std::size_t distances) : counts_(distances + kRoom) {}

    void start(int radius) {
        radius_ = radius;
        first_ = end_ = std::min(std::size_t(radius) + 1, counts_.size() - kRoom);
        if (end_ < counts_.size()) counts_[end_] = countAt(std::int64_t(end_));
    }
    /// The counts for the distances from this one up to the radius and one more, as far as there was room.
    [[nodiscard]] const std::int32_t* from(std::size_t distance) {
        if (distance < first_) extend(distance);
        return &counts_[distance];
    }

 private:
    static constexpr std::size_t kRoom = 64;

    [[nodiscard]] std::int32_t countAt(std::int64_t a) const {
        const std::int64_t rest = std::int64_t{radius_} * radius_ - a * a + a - 1;
        return rest < 0 ? 0 : static_cast<std::int32_t>(std::sqrt(double(rest)));
    }

    /// Whole numbers below 2^52 have roots whose whole parts survive the rounding.
    HWY_NOINLINE void extend(std::size_t distance) {
        const hn::ScalableTag<double> d;
        const hn::Rebind<std::int32_t, decltype(d)> d32;
        const std::size_t lanes = hn::Lanes(d);
        std::size_t a = distance;
        const auto squared = hn::Set(d, double(radius_) * radius_ - 1);
        for (; a + lanes <= first_; a += lanes) {
            const auto here = hn::Iota(d, double(a));
            const auto rest = hn::Sub(squared, hn::Mul(here, hn::Sub(here, hn::Set(d, 1.0))));
            hn::StoreU(hn::DemoteTo(d32, hn::Sqrt(rest)), d32, &counts_[a]);
        }
        for (; a < first_; ++a) counts_[a] = countAt(std::int64_t(a));
        first_ = distance;
    }

    std::vector<std::int32_t> counts_;
    int radius_ = 0;
    std::size_t first_ = 0, end_ = 0;  // distances at hand
};

/// The pixels of one of the long sides, channel by channel.
struct Side {
    std::vector<std::uint8_t> blue, green, red;

    void append(Argb pixel) {
        blue.push_back(static_cast<std::uint8_t>(blueOf(pixel)));
        green.push_back(static_cast<std::uint8_t>(greenOf(pixel)));
        red.push_back(static_cast<std::uint8_t>(redOf(pixel)));
    }
    [[nodiscard]] ChannelSums at(std::size_t i) const { return {blue[i], green[i], red[i]}; }
};

/// The sum of `count` pixels from this one on, each as often as its count is above the next one.
HWY_NOINLINE ChannelSums sumOfReached(const Side& side, std::size_t first, const std::int32_t* counts,
                                      std::size_t count) {
    const hn::ScalableTag<std::int32_t> d;
    const hn::Rebind<std::uint8_t, decltype(d)> bytes;
    const std::size_t lanes = hn::Lanes(d);
    const std::uint8_t *const blue = &side.blue[first], *const green = &side.green[first],
                              *const red = &side.red[first];
    constexpr std::size_t kPiece = 1 << 14;  // whose sums fit 32 bits
    ChannelSums total;
    for (std::size_t i = 0; i < count;) {
        const std::size_t end = std::min(count, i + kPiece);
        auto blueSum = hn::Zero(d), greenSum = hn::Zero(d), redSum = hn::Zero(d);
        for (; i + lanes <= end; i += lanes) {
            const auto times = hn::Sub(hn::LoadU(d, counts + i), hn::LoadU(d, counts + i + 1));
            const auto timesLevel = [&](const std::uint8_t* levels) HWY_ATTR {
                return hn::Mul(times, hn::PromoteTo(d, hn::LoadU(bytes, levels + i)));
            };
            blueSum = hn::Add(blueSum, timesLevel(blue));
            greenSum = hn::Add(greenSum, timesLevel(green));
            redSum = hn::Add(redSum, timesLevel(red));
        }
        const auto sumOf = [&](auto sums)
                               HWY_ATTR { return std::int64_t{hn::GetLane(hn::SumOfLanes(d, sums))}; };
        total.add(ChannelSums{sumOf(blueSum), sumOf(greenSum), sumOf(redSum)});
        for (; i < end; ++i) total.add(side.at(first + i), counts[i] - counts[i + 1]);
    }
    return total;
}

class LongRingMeans {
 public:
    LongRingMeans(PixelView source, MutablePixelView target, IntPoint centre, double halfAngle)
        : source_(source),
          target_(target),
          isWide_(source.width >= source.height),
          length_(isWide_ ? source.width : source.height),
          breadth_(isWide_ ? source.height : source.width),
          centre_(isWide_ ? Place{centre.x, centre.y} : Place{centre.y, centre.x}),
          halfAngle_(halfAngle),
          axes_(isWide_ ? kWideAxes : kTallAxes),
          reaching_(std::size_t(length_) + 1) {
        for (int i = 0; i < 2; ++i) {
            const std::int64_t across = i == 0 ? 0 : breadth_ - 1;
            sums_[i].resize(std::size_t(length_) + 1);
            for (std::int64_t along = 0; along < length_; ++along) {
                const Argb pixel = pixelAt({along, across});
                sides_[i].append(pixel);
                mirroredSides_[i].append(pixelAt({length_ - 1 - along, across}));
                sums_[i][std::size_t(along) + 1] = sums_[i][std::size_t(along)];
                sums_[i][std::size_t(along) + 1].add(pixel);
            }
        }
    }

    void run(int firstRadius, int lastRadius) {
        for (int radius = firstRadius; radius <= lastRadius; ++radius) {
            const RingEighth eighth(radius);
            reaching_.start(radius);
            for (int axis = 0; axis < 4; ++axis) {
                if (axes_[axis].isAlong) smear(eighth, axis);
            }
        }
    }

 private:
    [[nodiscard]] bool contains(Place place) const {
        return place.along >= 0 && place.along < length_ && place.across >= 0 && place.across < breadth_;
    }
    [[nodiscard]] std::ptrdiff_t indexOf(Place place) const {
        return isWide_ ? place.across * source_.stridePixels + place.along
                       : place.along * source_.stridePixels + place.across;
    }
    /// The pixel there, or the nearest.
    [[nodiscard]] Argb pixelAt(Place place) const {
        return source_.pixels[indexOf({std::clamp<std::int64_t>(place.along, 0, length_ - 1),
                                       std::clamp<std::int64_t>(place.across, 0, breadth_ - 1)})];
    }

    [[nodiscard]] Place placeOf(const RingEighth& eighth, const Axis& axis, std::int64_t offset) const {
        const std::int64_t far = eighth.across(std::abs(offset));
        return axis.isAlong
                   ? Place{centre_.along + axis.signAlong * far, centre_.across + axis.signAcross * offset}
                   : Place{centre_.along + axis.signAlong * offset, centre_.across + axis.signAcross * far};
    }

    /// Blurs the points around one axis, the only ones inside.
    void smear(const RingEighth& eighth, int axisIndex) {
        const Axis& axis = axes_[axisIndex];
        std::int64_t first = -centre_.across, last = breadth_ - 1 - centre_.across;
        if (axis.signAcross < 0) first = -std::exchange(last, -first);
        const std::int64_t nearest = eighth.across(std::max(std::abs(first), std::abs(last)));
        if (!contains({centre_.along + axis.signAlong * nearest, centre_.across})) return;

        const auto reach = std::int64_t(eighth.radius() * halfAngle_);
        const std::int64_t count = 4 * eighth.quarter(), window = 2 * reach + 1;
        ChannelSums whole, part;
        const std::int64_t rest = reach < 0 ? 0 : window % count;
        if (window > count) whole = sumOf(eighth, axisIndex, 0, count);
        // Points are numbered from the beginning of the axis's quarter.
        std::int64_t start = (((eighth.mirroredCount() + first - reach) % count) + count) % count;
        if (reach >= 0) part = sumOf(eighth, axisIndex, start, rest);
        for (std::int64_t offset = first; offset <= last; ++offset) {
            const Place place = placeOf(eighth, axis, offset);
            if (contains(place)) {
                target_.pixels[indexOf(place)] = reach < 0 ? 0xFF000000u : mean(part, whole, window, count);
            }
            if (reach < 0 || rest == 0) continue;
            part.add(pixelOf(eighth, axisIndex, start), -1);
            part.add(pixelOf(eighth, axisIndex, start + rest));
            start = start + 1 == count ? 0 : start + 1;
        }
    }

    [[nodiscard]] static Argb mean(const ChannelSums& part, const ChannelSums& whole, std::int64_t window,
                                   std::int64_t count) {
        const double turns = double(window / count);
        const auto channel = [&](std::int64_t rest, std::int64_t ring) {
            return unsigned((double(rest) + turns * double(ring) + 0.5) / double(window));
        };
        return makeOpaque(channel(part.red, whole.red), channel(part.green, whole.green),
                          channel(part.blue, whole.blue));
    }

    /// The colour of a point, numbered from the beginning of an axis's quarter.
    [[nodiscard]] Argb pixelOf(const RingEighth& eighth, int axisIndex, std::int64_t point) const {
        const std::int64_t quarters = point / eighth.quarter();
        const std::int64_t offset = point % eighth.quarter() - eighth.mirroredCount();
        return pixelAt(placeOf(eighth, axes_[(axisIndex + quarters) % 4], offset));
    }

    /// The sum of points numbered in the same way.
    [[nodiscard]] ChannelSums sumOf(const RingEighth& eighth, int axisIndex, std::int64_t point,
                                    std::int64_t count) {
        ChannelSums sum;
        while (count > 0) {
            const std::int64_t quarters = point / eighth.quarter(), inQuarter = point % eighth.quarter();
            const std::int64_t taken = std::min(count, eighth.quarter() - inQuarter);
            const Axis& axis = axes_[(axisIndex + quarters) % 4];
            const std::int64_t first = inQuarter - eighth.mirroredCount(), last = first + taken - 1;
            sum.add(axis.isAlong ? sumAround(eighth, axis, first, last) : sumBeside(axis, first, last));
            point += taken;
            count -= taken;
        }
        return sum;
    }

    /// The sum around an axis beside the picture, where a ring meets each pixel of the long side once.
    [[nodiscard]] ChannelSums sumBeside(const Axis& axis, std::int64_t first, std::int64_t last) const {
        const std::vector<ChannelSums>& before = sums_[axis.signAcross < 0 ? 0 : 1];
        std::int64_t from = centre_.along + axis.signAlong * first,
                     to = centre_.along + axis.signAlong * last;
        if (from > to) std::swap(from, to);
        const std::int64_t begin = std::clamp<std::int64_t>(from, 0, length_);
        const std::int64_t end = std::clamp<std::int64_t>(to + 1, 0, length_);
        ChannelSums sum = before[std::size_t(end)];
        sum.add(before[std::size_t(begin)], -1);
        const std::int64_t across = axis.signAcross < 0 ? 0 : breadth_ - 1;
        sum.add(pixelAt({0, across}), std::max<std::int64_t>(0, std::min<std::int64_t>(to + 1, 0) - from));
        sum.add(pixelAt({length_ - 1, across}), std::max<std::int64_t>(0, to + 1 - std::max(from, length_)));
        return sum;
    }

    /// The sum around an axis along the picture.
    [[nodiscard]] ChannelSums sumAround(const RingEighth& eighth, const Axis& axis, std::int64_t first,
                                        std::int64_t last) {
        ChannelSums sum;
        if (first <= 0 && last >= 0) sum.add(pixelAt(placeOf(eighth, axis, 0)));
        if (first < 0) {
            sum.add(sumOnOneSide(eighth, axis, -1, std::max<std::int64_t>(1, -last), -first));
        }
        if (last > 0) sum.add(sumOnOneSide(eighth, axis, 1, std::max<std::int64_t>(1, first), last));
        return sum;
    }

    /// The sum of the points so far from the axis, first to last, after it (1) or before it (-1).
    [[nodiscard]] ChannelSums sumOnOneSide(const RingEighth& eighth, const Axis& axis, int sign,
                                           std::int64_t first, std::int64_t last) {
        ChannelSums sum;
        const int acrossSign = axis.signAcross * sign;
        const std::int64_t inside = acrossSign < 0 ? centre_.across : breadth_ - 1 - centre_.across;
        for (; first <= std::min(last, inside); ++first) {
            sum.add(pixelAt(placeOf(eighth, axis, sign * first)));
        }
        if (first > last) return sum;
        sum.add(sumAlong(eighth, axis, acrossSign, last));
        sum.add(sumAlong(eighth, axis, acrossSign, first - 1), -1);
        return sum;
    }

    /// The sum of the first points away from an axis as if all were beyond the long side.
    [[nodiscard]] ChannelSums sumAlong(const RingEighth& eighth, const Axis& axis, int acrossSign,
                                       std::int64_t count) {
        ChannelSums sum;
        if (count == 0) return sum;
        const bool isForward = axis.signAlong > 0;
        const Side& side = (isForward ? sides_ : mirroredSides_)[acrossSign < 0 ? 0 : 1];
        const std::int64_t origin = isForward ? centre_.along : length_ - 1 - centre_.along;
        const std::int64_t farthest = length_ - 1 - origin;  // inside
        // From the axis: points beyond the end, points at distances that all have, points at the last one.
        const std::int64_t nearest = eighth.across(count);
        const std::int64_t beyond = std::min(count, eighth.reaching(farthest + 1));
        sum.add(pixelAt({isForward ? length_ - 1 : 0, acrossSign < 0 ? 0 : breadth_ - 1}), beyond);
        if (nearest > farthest) return sum;
        const std::size_t at = std::size_t(origin + nearest);
        sum.add(side.at(at), count - eighth.reaching(nearest + 1));
        const std::int64_t top = std::min<std::int64_t>(farthest, eighth.radius());
        if (nearest + 1 > top) return sum;
        const std::int32_t* const counts = reaching_.from(std::size_t(nearest) + 1);
        const std::size_t distances = std::size_t(top - nearest);
        sum.add(sumOfReached(side, at + 1, counts, distances));
        return sum;
    }

    PixelView source_;
    MutablePixelView target_;
    bool isWide_;
    std::int64_t length_, breadth_;
    Place centre_;
    double halfAngle_;
    const Axis* axes_;
    // The two long sides, the same from their other ends, and the sums of the pixels before each.
    Side sides_[2], mirroredSides_[2];
    std::vector<ChannelSums> sums_[2];
    Reaching reaching_;
};

}  // namespace

void longRingMeans(PixelView source, MutablePixelView target, IntPoint centre, double halfAngle,
                   int firstRadius, int lastRadius) {
    LongRingMeans(source, target, centre, halfAngle).run(firstRadius, lastRadius);
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(longRingMeans);

bool isLongForRings(PixelView source) {
    return std::max(source.width, source.height) / 16 >= std::min(source.width, source.height);
}

int firstLongRing(PixelView source) { return 2 * std::min(source.width, source.height) + 8; }

void longRingMeans(PixelView source, MutablePixelView target, IntPoint centre, double halfAngle,
                   int firstRadius, int lastRadius) {
    HWY_DYNAMIC_DISPATCH(longRingMeans)(source, target, centre, halfAngle, firstRadius, lastRadius);
}

}  // namespace orvane
#endif
