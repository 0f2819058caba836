#include "filters/kernels/glow_falloff.h"

#include <algorithm>
#include <cmath>

namespace orvane {
namespace {

std::uint32_t distanceOf(int dx, int dy) {
    return static_cast<std::uint32_t>(std::sqrt(double(dx) * dx + double(dy) * dy));
}

}  // namespace

GlowFalloff::GlowFalloff(int radius, int intensity, int width, int height)
    : reachX_(std::min(radius, width - 1)), reachY_(std::min(radius, height - 1)) {
    const double k = (intensity - 1.0) / radius;
    const auto farthest = std::min<std::uint32_t>(std::uint32_t(radius), distanceOf(reachX_, reachY_));
    weights_.reserve(std::size_t(farthest) + 1);
    double sum = k == 0.0 ? radius + 1.0 : 0.0;
    for (std::uint32_t d = 0; d <= std::uint32_t(radius); ++d) {
        const double weight = 1 / (d * k + 1);
        if (k != 0.0) sum += weight;
        if (d <= farthest) {
            weights_.push_back(weight);
        } else if (k == 0.0) {
            break;  // so many ones add up exactly
        }
    }
    for (double& weight : weights_) weight = intensity * weight / (765 * sum);
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
