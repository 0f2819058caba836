#include "filters/kernels/add_far_glow.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "filters/kernels/brighten_pixels.h"
#include "filters/kernels/glow_falloff.h"
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

/// Sums of equal terms, which depend on their number alone. Such sums are whole numbers often.
class EqualTerms {
 public:
    /// term: 0 if the terms are not equal.
    EqualTerms(double term, std::size_t mostTerms) : term_(term) {
        double sum = 0.0;
        for (std::size_t count = 1; term != 0.0 && count <= mostTerms && sum < 255.0; ++count) {
            sum += term;
            while (counts_.size() < std::size_t(wholeLevels(sum))) counts_.push_back(double(count));
        }
    }
    /// Whether a sum that is off by the error still tells the number.
    [[nodiscard]] bool canCount(double error) const { return error < 0.25 * term_; }
    [[nodiscard]] std::uint8_t levels(double sum) const {
        const double count = std::round(sum / term_);
        return std::uint8_t(std::upper_bound(counts_.begin(), counts_.end(), count) - counts_.begin());
    }

 private:
    double term_;
    std::vector<double> counts_;  // of terms that reach 1, 2, 3, ...
};

/// The lights of a picture column by column, which is the order in which they are added up.
class LightColumns {
 public:
    [[nodiscard]] bool isEmpty() const { return lights_.empty(); }
    void take(PixelView source, int level) {
        height_ = source.height;
        lights_.resize(source.pixelCount());
        constexpr int kRowsAtOnce = 32;  // a cache line of each column
        for (int top = 0; top < source.height; top += kRowsAtOnce) {
            const int bottom = std::min(source.height, top + kRowsAtOnce);
            for (int x = 0; x < source.width; ++x) {
                std::uint16_t* const column = &lights_[std::size_t(x) * std::size_t(height_)];
                for (int y = top; y < bottom; ++y) {
                    column[y] = static_cast<std::uint16_t>(lightOf(source.at(x, y), level));
                }
            }
        }
    }
    [[nodiscard]] const std::uint16_t* column(int x) const {
        return &lights_[std::size_t(x) * std::size_t(height_)];
    }

 private:
    int height_ = 0;
    std::vector<std::uint16_t> lights_;
};

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

    std::uint8_t exactLevels(int x, int y) {
        if (lights_.isEmpty()) lights_.take(source_, level_);
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
