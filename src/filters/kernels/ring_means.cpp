#include "filters/kernels/ring_means.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/ring_means.cpp"
#include <hwy/foreach_target.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "filters/kernels/digital_ring.h"
#include "filters/kernels/long_ring_means.h"
#include "filters/kernels/pixel_sums-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

class RingMeans {
 public:
    RingMeans(PixelView source, MutablePixelView target, IntPoint centre, double halfAngle)
        : source_(source), target_(target), centre_(centre), halfAngle_(halfAngle) {}

    /// All rings up to this radius.
    void run(int lastRadius) {
        for (int radius = 2; radius <= lastRadius; ++radius) {
            placeRing(radius);
            smear(radius);
        }
        placeFirstRing();
        smear(1);
    }

 private:
    void resize(std::size_t points) {
        count_ = points;
        if (places_.size() >= points) return;
        const std::size_t room = points + points / 8;
        places_.resize(room);
        inside_.resize(room);
        means_.resize(room);
    }

    // Point i of each quarter is that of the one before, turned clockwise.
    void placeRing(int radius) {
        ring_.trace(radius);
        const std::size_t quarter = ring_.up.size();
        resize(4 * quarter);
        placeQuarter(0, ring_.across.data(), -1, ring_.up.data(), -1);
        placeQuarter(quarter, ring_.up.data(), 1, ring_.across.data(), -1);
        placeQuarter(2 * quarter, ring_.across.data(), 1, ring_.up.data(), 1);
        placeQuarter(3 * quarter, ring_.up.data(), -1, ring_.across.data(), 1);
    }

    HWY_NOINLINE void placeQuarter(std::size_t first, const std::int32_t* HWY_RESTRICT dx, int signX,
                                   const std::int32_t* HWY_RESTRICT dy, int signY) {
        const std::size_t count = ring_.up.size();
        const int right = source_.width - 1, bottom = source_.height - 1, stride = int(source_.stridePixels);
        const int centreX = centre_.x, centreY = centre_.y;
        std::int32_t* HWY_RESTRICT places = places_.data() + first;
        std::int32_t* HWY_RESTRICT inside = inside_.data() + first;
        for (std::size_t i = 0; i < count; ++i) {
            const int x = centreX + signX * dx[i], y = centreY + signY * dy[i];
            const int nearX = std::min(std::max(x, 0), right), nearY = std::min(std::max(y, 0), bottom);
            places[i] = nearY * stride + nearX;
            inside[i] = nearX == x && nearY == y ? places[i] : -1;
        }
    }

    void placeFirstRing() {
        constexpr IntPoint kNeighbours[] = {{0, -1}, {1, -1}, {1, 0},  {1, 1},
                                            {0, 1},  {-1, 1}, {-1, 0}, {-1, -1}};
        resize(8);
        for (std::size_t i = 0; i < 8; ++i) {
            const int x = centre_.x - 1 + kNeighbours[i].x, y = centre_.y + kNeighbours[i].y;
            const int nearX = std::clamp(x, 0, source_.width - 1);
            const int nearY = std::clamp(y, 0, source_.height - 1);
            places_[i] = nearY * int(source_.stridePixels) + nearX;
            inside_[i] = nearX == x && nearY == y ? places_[i] : -1;
        }
    }

    // Blurs the ring that has been placed.
    void smear(int radius) {
        const auto reach = std::int64_t(radius * halfAngle_);
        if (reach < 0) {
            std::fill_n(means_.begin(), count_, 0u);
            return store(0, count_);
        }
        const auto count = std::int64_t(count_), window = 2 * reach + 1;
        const auto rest = std::size_t(window % count);
        // Sums start where the window of point 0 does, so that they need not turn round on the way.
        addUpFrom(std::size_t((count - reach % count) % count), count_ + rest);
        double turns[4];
        for (std::size_t c = 0; c < 4; ++c) {
            turns[c] = double(window / count) * before_[count_].channels[c];
        }
        constexpr std::size_t kChunk = 64;
        for (std::size_t j = 0; j < count_; j += kChunk) {
            const std::size_t end = std::min(j + kChunk, count_);
            if (!touchesPicture(j, end)) continue;
            findMeans(j, end, rest, turns, window);
            store(j, end);
        }
    }

    void addUpFrom(std::size_t first, std::size_t points) {
        if (before_.size() <= points) before_.resize(points + points / 8 + 1);
        for (std::size_t done = 0; done < points;) {
            const std::size_t piece = std::min(points - done, count_ - first);
            addUp(source_.pixels, places_.data() + first, piece, before_.data() + done);
            done += piece;
            first = 0;
        }
    }

    [[nodiscard]] bool touchesPicture(std::size_t from, std::size_t to) const {
        std::int32_t highest = -1;
        for (std::size_t j = from; j < to; ++j) highest = std::max(highest, inside_[j]);
        return highest >= 0;
    }

    // means_[j] for j = from..to-1: the sum of `rest` points from before_[j] on, and the whole turns.
    void findMeans(std::size_t from, std::size_t to, std::size_t rest, const double* turns,
                   std::int64_t window) {
        const std::uint32_t* HWY_RESTRICT starts = before_[from].channels;
        const std::uint32_t* HWY_RESTRICT ends = before_[from + rest].channels;
        auto* HWY_RESTRICT bytes = reinterpret_cast<std::uint8_t*>(means_.data() + from);
        const std::size_t channels = 4 * (to - from);
        std::size_t i = 0;
#if HWY_TARGET != HWY_SCALAR
        i = window <= kMaxMeanCount ? findMeansOfFew(starts, ends, bytes, channels, turns, int(window)) : 0;
#endif
        const double reciprocal = 1.0 / double(window);
        for (; i < channels; ++i) {
            const double sum = double(std::int32_t(ends[i] - starts[i])) + turns[i % 4];
            bytes[i] = static_cast<std::uint8_t>(static_cast<int>((sum + 0.5) * reciprocal));
        }
    }

#if HWY_TARGET != HWY_SCALAR
    // The same in single precision, which is fine enough for these windows; whole vectors only.
    HWY_NOINLINE std::size_t findMeansOfFew(const std::uint32_t* HWY_RESTRICT starts,
                                            const std::uint32_t* HWY_RESTRICT ends,
                                            std::uint8_t* HWY_RESTRICT bytes, std::size_t channels,
                                            const double* turns, int window) const {
        const hn::ScalableTag<std::int32_t> d;
        const hn::RebindToFloat<decltype(d)> df;
        const hn::Rebind<std::uint8_t, decltype(d)> d8;
        HWY_ALIGN std::int32_t turnSums[4];
        for (std::size_t c = 0; c < 4; ++c) turnSums[c] = std::int32_t(turns[c]);
        const auto turnSum = hn::LoadDup128(d, turnSums);
        const auto half = hn::Set(df, 0.5f), reciprocal = hn::Set(df, 1.0f / float(window));
        const auto load = [&](const std::uint32_t* sums)
                              HWY_ATTR { return hn::LoadU(d, reinterpret_cast<const std::int32_t*>(sums)); };
        const std::size_t lanes = hn::Lanes(d);
        std::size_t i = 0;
        for (; i + lanes <= channels; i += lanes) {
            const auto sum = hn::Add(hn::Sub(load(ends + i), load(starts + i)), turnSum);
            const auto mean = hn::Mul(hn::Add(hn::ConvertTo(df, sum), half), reciprocal);
            hn::StoreU(hn::DemoteTo(d8, hn::ConvertTo(d, mean)), d8, bytes + i);
        }
        return i;
    }
#endif

    void store(std::size_t from, std::size_t to) {
        for (std::size_t j = from; j < to; ++j) {
            if (inside_[j] >= 0) target_.pixels[inside_[j]] = means_[j] | 0xFF000000u;
        }
    }

    PixelView source_;
    MutablePixelView target_;
    IntPoint centre_;
    double halfAngle_;

    DigitalRing ring_;
    std::size_t count_ = 0;             // points of the ring at hand
    std::vector<std::int32_t> places_;  // of its points or the pixels nearest to them, as indices
    std::vector<std::int32_t> inside_;  // the same, -1 for points outside the picture
    std::vector<Argb> means_;           // alpha undefined
    std::vector<PixelSums> before_ = std::vector<PixelSums>(1);  // running sums; the first stays 0
};

}  // namespace

void ringMeans(PixelView source, MutablePixelView target, IntPoint centre, double halfAngle, int lastRadius) {
    RingMeans(source, target, centre, halfAngle).run(lastRadius);
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(ringMeans);

void ringMeans(PixelView source, MutablePixelView target, IntPoint centre, double halfAngle) {
    const double across = std::max(centre.x + 1, source.width - centre.x);
    const double down = std::max(centre.y + 1, source.height - centre.y);
    const int lastRadius = int(std::sqrt(across * across + down * down));
    const int lastShort = isLongForRings(source) ? firstLongRing(source) - 1 : lastRadius;
    HWY_DYNAMIC_DISPATCH(ringMeans)(source, target, centre, halfAngle, std::min(lastRadius, lastShort));
    if (lastRadius > lastShort) {
        longRingMeans(source, target, centre, halfAngle, lastShort + 1, lastRadius);
    }
}

}  // namespace orvane
#endif
