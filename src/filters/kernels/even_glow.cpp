#include "filters/kernels/even_glow.h"

#include <algorithm>
#include <cmath>

#include "filters/kernels/light_columns.h"

namespace orvane {
namespace {

std::uint8_t wholeLevels(double sum) { return static_cast<std::uint8_t>(std::min(sum, 255.0)); }

/// Adds up all but one.
std::uint8_t levelsWithout(const std::vector<std::uint16_t>& lights, double weight, std::size_t own) {
    double sum = 0.0;
    for (std::size_t i = 0; i < lights.size() && sum < 255.0; ++i) {
        if (i != own) sum += lights[i] * weight;
    }
    return wholeLevels(sum);
}

}  // namespace

EqualTerms::EqualTerms(double term, std::size_t mostTerms) : term_(term) {
    double sum = 0.0;
    for (std::size_t count = 1; term != 0.0 && count <= mostTerms && sum < 255.0; ++count) {
        sum += term;
        while (counts_.size() < wholeLevels(sum)) counts_.push_back(double(count));
    }
}

std::uint8_t EqualTerms::levels(double sum) const {
    const double count = std::round(sum / term_);
    return std::uint8_t(std::upper_bound(counts_.begin(), counts_.end(), count) - counts_.begin());
}

std::uint8_t EvenLight::levelsAt(const LightColumns& lights, double weight, int x, int y) {
    if (powers_.empty()) {
        findPowers(lights, weight);
        findTies(lights, weight);
    }
    const std::size_t own = lights.orderOf(x, y);
    const int light = lights.inOrder()[own];
    // A dark pixel leaves nothing out, wherever it is.
    std::size_t passed = 0;
    if (light != 0) {
        const auto isLater = [](std::size_t order, const Power& power) { return order < power.passedAt; };
        const auto next = std::upper_bound(powers_.begin(), powers_.end(), own, isLater);
        passed = std::size_t(next - powers_.begin());
        // The term that passes a power is rounded to the steps beyond it.
        const bool isAlone =
            passed == 0 || powers_[passed - 1].hasTies || powers_[passed - 1].passedAt == own;
        if (isAlone) return levelsWithout(lights.inOrder(), weight, own);
    }
    const auto [place, isNew] = known_.try_emplace({passed, light}, std::uint8_t{0});
    if (isNew) place->second = levelsWithout(lights.inOrder(), weight, own);
    return place->second;
}

void EvenLight::findPowers(const LightColumns& lights, double weight) {
    double sum = 0.0, next = 0.0;
    for (std::size_t i = 0; i < lights.inOrder().size(); ++i) {
        sum += lights.inOrder()[i] * weight;
        if (sum < next || sum == 0.0) continue;
        const int exponent = std::ilogb(sum);
        powers_.push_back({i, exponent, false});
        next = std::ldexp(1.0, exponent + 1);
    }
}

void EvenLight::findTies(const LightColumns& lights, double weight) {
    bool isThere[3 * 255 + 1] = {};
    for (const std::uint16_t light : lights.inOrder()) isThere[light] = true;
    for (Power& power : powers_) {
        for (int light = 1; light <= 3 * 255; ++light) {
            const double steps = std::ldexp(light * weight, 52 - power.exponent);
            power.hasTies = power.hasTies || (isThere[light] && steps - std::floor(steps) == 0.5);
        }
    }
}

}  // namespace orvane
