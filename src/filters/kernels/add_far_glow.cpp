#include "filters/kernels/add_far_glow.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "filters/kernels/brighten_pixels.h"
#include "filters/kernels/even_glow.h"
#include "filters/kernels/glow_falloff.h"
#include "filters/kernels/light_columns.h"
#include "filters/kernels/light_source.h"
#include "filters/kernels/light_sums.h"

namespace orvane {
namespace {

int wholeLevels(double sum) { return static_cast<int>(std::clamp(sum, 0.0, 255.0)); }

/// The light of all sources, if it is the same, and 0 otherwise.
int commonLight(PixelView source, int level) {
    int common = 0;
    for (int y = 0; y < source.height; ++y) {
        for (int x = 0; x < source.width; ++x) {
            const int light = lightOf(source.row(y)[x], level);
            if (light == 0 || light == common) continue;
            if (common != 0) return 0;
            common = light;
        }
    }
    return common;
}

class FarGlow {
 public:
    FarGlow(PixelView source, int level, const GlowFalloff& falloff, std::size_t lights)
        : source_(source),
          level_(level),
          falloff_(falloff),
          sums_(estimateLight(source, level, falloff)),
          rounding_(roundingOf(falloff, lights)),
          equalTerms_(falloff.isEven() ? commonLight(source, level) * falloff.weight(1) : 0.0, lights) {}

    /// The light on row y, in whole levels.
    void levelsOfRow(int y, std::uint8_t* levels) {
        const double* const sums = &sums_.values[std::size_t(y) * std::size_t(source_.width)];
        for (int x = 0; x < source_.width; ++x) {
            const double sum = sums[x], error = sums_.error + std::abs(sum) * rounding_;
            levels[x] = static_cast<std::uint8_t>(wholeLevels(sum - error));
            if (levels[x] == wholeLevels(sum + error)) continue;
            levels[x] = equalTerms_.canCount(sums_.error) ? equalTerms_.levels(sum) : exactLevels(x, y);
        }
    }

 private:
    /// In the order of the definition, each product is rounded once, and each sum but the first.
    static double roundingOf(const GlowFalloff& falloff, std::size_t lights) {
        const double reached = (2.0 * falloff.reachX() + 1) * (2.0 * falloff.reachY() + 1);
        return (std::min(double(lights), reached) + 4) / double(1ull << 53);
    }

    /// Whether light from the whole picture arrives here.
    [[nodiscard]] bool reachesAll(int x, int y) const {
        const int dx = std::max(x, source_.width - 1 - x), dy = std::max(y, source_.height - 1 - y);
        return dy <= falloff_.reachY() && dx <= falloff_.rowReach(dy);
    }

    std::uint8_t exactLevels(int x, int y) {
        if (lights_.isEmpty()) lights_.take(source_, level_);
        if (falloff_.isEven() && reachesAll(x, y)) {
            return evenLight_.levelsAt(lights_, falloff_.weight(1), x, y);
        }
        const int right = std::min(source_.width - 1, x + falloff_.reachX());
        const int top = std::max(0, y - falloff_.reachY());
        const int bottom = std::min(source_.height - 1, y + falloff_.reachY());
        double sum = 0.0;
        for (int column = std::max(0, x - falloff_.reachX()); column <= right && sum < 255.0; ++column) {
            const std::uint16_t* const lights = lights_.column(column);
            const int dx = std::abs(column - x);
            for (int row = top; row <= bottom; ++row) {
                if (lights[row] == 0) continue;
                sum += lights[row] * falloff_.weight(falloff_.distances(std::abs(row - y))[dx]);
            }
        }
        return static_cast<std::uint8_t>(wholeLevels(sum));
    }

    PixelView source_;
    int level_;
    const GlowFalloff& falloff_;
    LightSums sums_;
    double rounding_;  // of the sums that the definition makes, as a share of them
    EqualTerms equalTerms_;
    LightColumns lights_;  // taken at the first doubt
    EvenLight evenLight_;
};

}  // namespace

void addFarGlow(PixelView source, MutablePixelView target, int level, const GlowFalloff& falloff,
                std::size_t lights) {
    FarGlow glow(source, level, falloff, lights);
    std::vector<std::uint8_t> levels(std::size_t(source.width));
    for (int y = 0; y < source.height; ++y) {
        glow.levelsOfRow(y, levels.data());
        brightenPixels(source.row(y), levels.data(), target.row(y), levels.size());
    }
}

}  // namespace orvane
