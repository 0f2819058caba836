#include "filters/kernels/glow_falloff.h"

#include <algorithm>
#include <cmath>

namespace orvane {
namespace {

std::uint32_t distanceOf(int dx, int dy) {
    return static_cast<std::uint32_t>(std::sqrt(double(dx) * dx + double(dy) * dy));
}

/// What falls with the distance.
double share(std::int64_t distance, double slope) { return 1 / (double(distance) * slope + 1); }

/// Adds up shares one by one, and gets the same faster where they hardly differ: a sum goes in steps of its
/// last place, so whole runs of shares change it by the same amount until it reaches the next power of two.
class ShareSum {
 public:
    ShareSum(double sum, double slope) : sum_(sum), slope_(slope) { findLastPlace(); }

    /// Adds the shares of the distances from `first` to `last`.
    void add(std::int64_t first, std::int64_t last) {
        for (std::int64_t d = first; d <= last;) {
            const double nearest = share(d, slope_), fall = slope_ * nearest * nearest;
            d += kShortestRun * fall < lastPlace_ ? addRun(d, last, nearest, fall) : addOne(nearest);
        }
    }
    [[nodiscard]] double value() const { return sum_; }

 private:
    /// Shorter ones are not worth the trouble.
    static constexpr double kShortestRun = 4;

    void findLastPlace() {
        power_ = std::exp2(std::ilogb(sum_) + 1);
        lastPlace_ = power_ / double(1ull << 53);
    }

    std::int64_t addOne(double share) {
        sum_ += share;
        if (sum_ >= power_) findLastPlace();
        return 1;
    }

    /// Adds the shares from distance d on that take the same step as the first, and answers how many. Shares
    /// fall by `fall` at d and ever more slowly farther out.
    std::int64_t addRun(std::int64_t d, std::int64_t last, double nearest, double fall) {
        const double step = (sum_ + nearest) - sum_, room = nearest - (step - lastPlace_ / 2);
        double run = double(last - d + 1);
        if (room < run * fall) run = room / fall;
        run = std::floor(std::min(run, (power_ - sum_) / (step + lastPlace_) - 1));
        if (run < kShortestRun || !isRounded(nearest, step)) return addOne(nearest);
        if (!isRounded(share(d + std::int64_t(run) - 1, slope_), step)) return addOne(nearest);
        sum_ += run * step;
        return std::int64_t(run);
    }

    /// Whether adding the share takes this step, and not only because a tie goes to the even number. As
    /// shares fall, what holds for two of them holds for those in between.
    [[nodiscard]] bool isRounded(double share, double step) const {
        return 2 * std::abs(share - step) < lastPlace_;
    }

    double sum_, slope_;
    double power_ = 0.0, lastPlace_ = 0.0;  // the next power of two, and the least that changes the sum
};

}  // namespace

GlowFalloff::GlowFalloff(int radius, int intensity, int width, int height)
    : isEven_(intensity == 1), reachX_(std::min(radius, width - 1)), reachY_(std::min(radius, height - 1)) {
    const double slope = (intensity - 1.0) / radius;
    const auto farthest = std::min<std::uint32_t>(std::uint32_t(radius), distanceOf(reachX_, reachY_));
    weights_.reserve(std::size_t(farthest) + 1);
    double sum = 0.0;
    for (std::uint32_t d = 0; d <= farthest; ++d) {
        weights_.push_back(share(d, slope));
        sum += weights_.back();
    }
    ShareSum total(sum, slope);
    total.add(std::int64_t{farthest} + 1, radius);
    for (double& weight : weights_) weight = intensity * weight / (765 * total.value());
    weights_[0] = 0.0;
    for (const double weight : weights_) roughWeights_.push_back(static_cast<float>(weight));

    distances_.resize((std::size_t(reachX_) + 1) * (std::size_t(reachY_) + 1));
    for (int dy = 0; dy <= reachY_; ++dy) {
        std::uint32_t* const row = distances_.data() + std::size_t(dy) * (std::size_t(reachX_) + 1);
        int reach = 0;
        for (int dx = 0; dx <= reachX_; ++dx) {
            const std::uint32_t distance = distanceOf(dx, dy);
            const bool lit = distance <= std::uint32_t(radius);
            row[dx] = lit ? distance : 0;
            if (lit) reach = dx;
        }
        rowReaches_.push_back(reach);
    }
}

}  // namespace orvane
