#include "filters/kernels/ray_means.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/ray_means.cpp"
#include <hwy/foreach_target.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "base/digital_ray.h"
#include "filters/kernels/long_ray_means.h"
#include "filters/kernels/pixel_sums-inl.h"
#include "filters/kernels/scratch.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

class RayMeans {
 public:
    RayMeans(PixelView source, MutablePixelView target, IntPoint centre, int strength)
        : source_(source),
          target_(target),
          centre_(centre),
          strength_(strength),
          visited_(std::size_t(source.stridePixels) * std::size_t(source.height)) {
        std::memset(visited_.data(), 0, std::size_t(source.stridePixels) * std::size_t(source.height));
        const double right = std::max(centre.x, source.width - 1 - centre.x);
        const double down = std::max(centre.y, source.height - 1 - centre.y);
        farthest_ = right * right + down * down;
        const std::size_t points = std::size_t(std::max(right, down)) + 1;
        places_.resize(points);
        before_.resize(points + 1);  // the first is no sum at all and stays 0
        fresh_.resize(points);
        reaches_.resize(points);
    }

    void run() {
        const int right = source_.width - 1, bottom = source_.height - 1;
        for (int x = 0; x < right; ++x) smear({x, 0});
        for (int y = 0; y < bottom; ++y) smear({right, y});
        for (int x = 1; x <= right; ++x) smear({x, bottom});
        for (int y = 1; y <= bottom; ++y) smear({0, y});
    }

 private:
    void smear(IntPoint start) {
        const DigitalRay ray(start, centre_);
        if (ray.steps == 0) return;
        const int points = ray.steps + 1;
        walk(ray, start, points);
        const int count = findFresh(points);
        if (count == 0) return;
        addUp(source_.pixels, places_.data(), std::size_t(points), before_.data());
        findReaches(ray, count);
        for (int i = 0; i < count; ++i) {
            const int j = fresh_[i], place = places_[j];
            target_.pixels[place] = mean(points, j, reaches_[i]);
            visited_[std::size_t(place)] = 1;
        }
    }

    HWY_NOINLINE void walk(const DigitalRay& ray, IntPoint start, int points) {
        const int stride = int(source_.stridePixels);
        const int down = ray.stepY * stride;
        const int ahead = ray.alongX ? ray.stepX : down, aside = ray.alongX ? down : ray.stepX;
        const int first = start.y * stride + start.x;
        std::int32_t* HWY_RESTRICT places = places_.data();
        const double slope = ray.slope, middle = ray.middle;
        for (int j = 0; j < points; ++j) places[j] = first + j * ahead + int(j * slope + middle) * aside;
    }

    // Lists the points whose pixels no earlier ray has passed.
    HWY_NOINLINE int findFresh(int points) {
        const std::int32_t* HWY_RESTRICT places = places_.data();
        const std::uint8_t* HWY_RESTRICT visited = visited_.data();
        std::int32_t* HWY_RESTRICT fresh = fresh_.data();
        int count = 0;
        for (int j = 0; j < points; ++j) {
            fresh[count] = j;
            count += 1 - visited[places[j]];
        }
        return count;
    }

    HWY_NOINLINE void findReaches(DigitalRay ray, int count) {
        const std::int32_t* HWY_RESTRICT fresh = fresh_.data();
        std::int32_t* HWY_RESTRICT reaches = reaches_.data();
        const double farthest = farthest_, strength = strength_;
        for (int i = 0; i < count; ++i) {
            reaches[i] = int(ray.squaredDistance(fresh[i]) / farthest * strength);
        }
    }

    HWY_INLINE Argb mean(int points, int j, int reach) const {
        const bool inside = reach >= 0 && reach <= j && reach < points - j;
        if (HWY_LIKELY(inside && reach <= kMaxMeanCount / 2)) {
            return meanOf(before_[std::size_t(j - reach)], before_[std::size_t(j + reach + 1)],
                          2 * reach + 1);
        }
        return reach < 0 ? 0xFF000000u : meanBeyondEnds(points, j, reach);
    }

    // Any reach; sums are whole numbers below 2^41, exact in double precision.
    HWY_NOINLINE Argb meanBeyondEnds(int points, int j, std::int64_t reach) const {
        const std::int64_t last = points - 1;
        const PixelSums& from = before_[std::size_t(std::max<std::int64_t>(j - reach, 0))];
        const PixelSums& to = before_[std::size_t(std::min<std::int64_t>(j + reach, last)) + 1];
        const double beforeStart = double(std::max<std::int64_t>(reach - j, 0));
        const double beyondEnd = double(std::max<std::int64_t>(reach - (last - j), 0));
        const Argb start = source_.pixels[places_[0]], end = source_.pixels[places_[std::size_t(last)]];
        const auto channel = [&](int c) {
            const double sum = double(to.channels[c] - from.channels[c]) +
                               beforeStart * ((start >> (8 * c)) & 255u) +
                               beyondEnd * ((end >> (8 * c)) & 255u);
            return unsigned((sum + 0.5) / double(2 * reach + 1));
        };
        return makeOpaque(channel(2), channel(1), channel(0));
    }

    PixelView source_;
    MutablePixelView target_;
    IntPoint centre_;
    int strength_;
    double farthest_;
    Scratch<std::uint8_t> visited_;      // 1 for pixels that a ray has passed
    std::vector<std::int32_t> places_;   // of the points of the ray, as indices into the pictures
    std::vector<PixelSums> before_;      // [j] is the sum of the points before j
    std::vector<std::int32_t> fresh_;    // points not visited before
    std::vector<std::int32_t> reaches_;  // of their windows
};

}  // namespace

void rayMeans(PixelView source, MutablePixelView target, IntPoint centre, int strength) {
    RayMeans(source, target, centre, strength).run();
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(rayMeans);

void rayMeans(PixelView source, MutablePixelView target, IntPoint centre, int strength) {
    // Rays overlap as often as the picture is longer than wide.
    constexpr int kLongShape = 40;
    const int longer = std::max(source.width, source.height), shorter = std::min(source.width, source.height);
    if (longer / kLongShape >= shorter) return longRayMeans(source, target, centre, strength);
    HWY_DYNAMIC_DISPATCH(rayMeans)(source, target, centre, strength);
}

}  // namespace orvane
#endif
