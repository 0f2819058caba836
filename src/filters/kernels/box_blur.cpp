#include "filters/kernels/box_blur.h"

#include <algorithm>
#include <type_traits>
#include <vector>

#include "filters/kernels/box_mean.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/box_blur.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/box_means-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {

namespace {

/// The centre is in the sum once already; its extra weight comes on top.
template <class Quotient>
class CentredMean {
 public:
    CentredMean(const Quotient& quotient, PixelView source, std::int32_t extraWeight)
        : quotient_(quotient),
          source_(source),
          extraWeight_(extraWeight),
          row_(std::size_t(source.width), 0, 0) {}

    void startRow(int y) {
        std::memcpy(row_.at(0), source_.row(y), std::size_t(source_.width) * sizeof(Argb));
    }
    void finishRow(int, std::uint8_t*) {}
    HWY_INLINE void operator()(SumVector sums, std::size_t lane, std::uint8_t* results) const {
        const SumTag d;
        const auto centre = hn::PromoteTo(d, hn::LoadU(SumLevelTag(), row_.at(0) + lane));
        const auto extra = hn::Mul(centre, hn::Set(d, extraWeight_));
        storeOpaque(quotient_(hn::Add(sums, extra)), results, lane);
    }

 private:
    Quotient quotient_;
    PixelView source_;
    std::int32_t extraWeight_;
    LaneRow<std::uint8_t> row_;  // readable beyond its end
};

}  // namespace

void boxBlur(PixelView source, MutablePixelView target, int radius) {
    forEachBoxMean(source, target, radius, [](int, std::uint8_t*) {});
}

void centredBox(PixelView source, MutablePixelView target, std::int32_t extraWeight, std::int32_t divisor,
                int radius) {
    withByteQuotient(divisor, [&](const auto& quotient) HWY_ATTR {
        forEachBoxSum(source, target, radius,
                      CentredMean<std::decay_t<decltype(quotient)>>(quotient, source, extraWeight));
    });
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(boxBlur);
HWY_EXPORT(centredBox);

namespace {

/// Windows of any radius, one channel of one pixel after the other. The sum of a window may need 72 bits; in
/// units of its side n plus a rest it takes twice 64: each column's sum is such a pair, so are their sums,
/// and floor(sum / n^2) = floor((units + floor(rest / n)) / n).
class VastBoxBlur {
 public:
    VastBoxBlur(PixelView source, MutablePixelView target, int radius)
        : source_(source),
          target_(target),
          radius_(radius),
          side_(2 * std::uint64_t(radius) + 1),
          columns_(std::size_t(source.width)) {}

    void blurChannel(int shift) {
        const auto level = [&](int x, int y) { return std::uint64_t{(source_.at(x, y) >> shift) & 255u}; };
        for (int x = 0; x < source_.width; ++x) {
            columns_[std::size_t(x)] = windowSum(source_.height, [&](int y) { return level(x, y); });
        }
        for (int y = 0; y < source_.height; ++y) {
            if (y > 0) {
                const int entering = y > source_.height - 1 - radius_ ? source_.height - 1 : y + radius_;
                const int leaving = y - 1 > radius_ ? y - 1 - radius_ : 0;
                for (int x = 0; x < source_.width; ++x) {
                    columns_[std::size_t(x)] += level(x, entering) - level(x, leaving);
                }
            }
            blurRow(target_.row(y), shift);
        }
    }

 private:
    void blurRow(Argb* target, int shift) const {
        const int last = source_.width - 1;
        const auto units = [&](int x) { return columns_[std::size_t(x)] / side_; };
        const auto rest = [&](int x) { return columns_[std::size_t(x)] % side_; };
        std::uint64_t unitSum = windowSum(source_.width, units), restSum = windowSum(source_.width, rest);
        for (int x = 0; x <= last; ++x) {
            if (x > 0) {
                const int entering = x > last - radius_ ? last : x + radius_;
                const int leaving = x - 1 > radius_ ? x - 1 - radius_ : 0;
                unitSum += units(entering) - units(leaving);
                restSum += rest(entering) - rest(leaving);
            }
            const auto mean = static_cast<Argb>((unitSum + restSum / side_) / side_);
            target[x] = (target[x] & ~(Argb{255} << shift)) | mean << shift | 0xFF000000u;
        }
    }

    /// The sum over places -radius..radius of a line of `count` values, which its ends continue.
    template <class ValueAt>
    [[nodiscard]] std::uint64_t windowSum(int count, const ValueAt& valueAt) const {
        const int inside = std::min(radius_, count - 1);
        std::uint64_t sum =
            valueAt(0) * (std::uint64_t(radius_) + 1) + valueAt(count - 1) * std::uint64_t(radius_ - inside);
        for (int i = 1; i <= inside; ++i) sum += valueAt(i);
        return sum;
    }

    PixelView source_;
    MutablePixelView target_;
    int radius_;
    std::uint64_t side_;
    std::vector<std::uint64_t> columns_;
};

}  // namespace

void boxBlurPixels(PixelView source, MutablePixelView target, int radius) {
    if (radius <= kMaxMeanRadius) {
        HWY_DYNAMIC_DISPATCH(boxBlur)(source, target, radius);
        return;
    }
    VastBoxBlur blur(source, target, radius);
    for (int shift : {0, 8, 16}) blur.blurChannel(shift);
}

void centredBoxPixels(PixelView source, MutablePixelView target, std::int32_t centreWeight, int radius) {
    const auto side = 2 * static_cast<std::uint32_t>(radius) + 1;
    const auto extraWeight = static_cast<std::uint32_t>(centreWeight) - 1u;
    HWY_DYNAMIC_DISPATCH(centredBox)
    (source, target, static_cast<std::int32_t>(extraWeight),
     static_cast<std::int32_t>(side * side + extraWeight), radius);
}

}  // namespace orvane
#endif
