#include "filters/kernels/add_glow.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "filters/kernels/add_far_glow.h"
#include "filters/kernels/brighten_pixels.h"
#include "filters/kernels/glow_falloff.h"
#include "filters/kernels/light_source.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/add_glow.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#ifndef ORVANE_FILTERS_KERNELS_ADD_GLOW_ONCE
#define ORVANE_FILTERS_KERNELS_ADD_GLOW_ONCE
namespace orvane {
namespace {

/// The picture is lit tile by tile.
constexpr int kTileWidth = 128, kTileHeight = 32;

struct LightSource {
    int x, y;
    float light;
};

}  // namespace
}  // namespace orvane
#endif

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

/// The light of a strip of the picture, one tile wide and `reachX` more on either side: R + G + B of the
/// pixels that shine, 0 elsewhere. Keeps as many rows as one row of tiles can see.
class LightStrip {
    using FloatTag = hn::ScalableTag<float>;
    using IntTag = hn::RebindToSigned<FloatTag>;

 public:
    LightStrip(PixelView source, int level, const GlowFalloff& falloff)
        : source_(source),
          level_(std::min(level, 256)),
          reach_(falloff.reachX()),
          rowLength_(kTileWidth + 2 * std::size_t(reach_)),
          rowCount_(std::min(source.height, kTileHeight + 2 * falloff.reachY())),
          light_(rowLength_ * std::size_t(rowCount_) + kSlack),
          sources_(std::size_t(rowCount_)) {}

    /// Moves to the strip whose tiles begin at this column; no row is there yet.
    void start(int x) {
        left_ = x - reach_;
        nextRow_ = 0;
    }
    /// Takes rows up to this one, without it.
    void takeRows(int end) {
        for (; nextRow_ < end; ++nextRow_) takeRow(nextRow_);
    }

    /// The light of row y, from column left() on.
    [[nodiscard]] const float* row(int y) const {
        return light_.data() + std::size_t(y % rowCount_) * rowLength_;
    }
    [[nodiscard]] int sourcesOf(int y) const { return sources_[std::size_t(y % rowCount_)]; }
    [[nodiscard]] int left() const { return left_; }
    [[nodiscard]] std::size_t rowLength() const { return rowLength_; }

 private:
    static constexpr std::size_t kSlack = 16;

    void takeRow(int y) {
        float* const row = light_.data() + std::size_t(y % rowCount_) * rowLength_;
        const int first = std::max(left_, 0);
        const int end = std::min(source_.width, left_ + int(rowLength_));
        std::fill_n(row, rowLength_, 0.0f);
        sources_[std::size_t(y % rowCount_)] =
            findLight(source_.row(y) + first, std::size_t(end - first), row + (first - left_));
    }

    [[nodiscard]] int findLight(const Argb* pixels, std::size_t count, float* light) const {
        const FloatTag df;
        const IntTag di;
        const hn::RebindToUnsigned<FloatTag> d;
        const auto byte = hn::Set(d, 255u);
        const auto tooDark = hn::Set(di, level_ - 1);
        std::size_t found = 0, i = 0;
        for (; i + hn::Lanes(d) <= count; i += hn::Lanes(d)) {
            const auto words = hn::LoadU(d, pixels + i);
            const auto red = hn::BitCast(di, hn::And(hn::ShiftRight<16>(words), byte));
            const auto green = hn::BitCast(di, hn::And(hn::ShiftRight<8>(words), byte));
            const auto blue = hn::BitCast(di, hn::And(words, byte));
            const auto lit = hn::Gt(hn::Min(hn::Min(red, green), blue), tooDark);
            const auto sum = hn::Add(hn::Add(red, green), blue);
            hn::StoreU(hn::ConvertTo(df, hn::IfThenElseZero(lit, sum)), df, light + i);
            found += hn::CountTrue(di, lit);
        }
        for (; i < count; ++i) {
            light[i] = static_cast<float>(lightOf(pixels[i], level_));
            found += light[i] != 0.0f;
        }
        return static_cast<int>(found);
    }

    PixelView source_;
    int level_, reach_;
    std::size_t rowLength_;
    int rowCount_;
    std::vector<float> light_;
    std::vector<int> sources_;
    int left_ = 0, nextRow_ = 0;
};

/// Lights a tile from a list of its sources, as the definition has it.
class ScatteredLight {
 public:
    /// With more sources per tile it is quicker to look at all pixels.
    static constexpr int kMaxSources = 500;

    explicit ScatteredLight(const GlowFalloff& falloff)
        : falloff_(falloff),
          rowLength_(std::size_t(2 * falloff.reachX() + 1) + kStep),
          weights_(rowLength_ * (std::size_t(falloff.reachY()) + 1)),
          sums_(kSumsPerRow * kTileHeight) {
        for (int dy = 0; dy <= falloff.reachY(); ++dy) {
            double* const centre = &weights_[std::size_t(dy) * rowLength_ + std::size_t(falloff.reachX())];
            for (int dx = 0; dx <= falloff.rowReach(dy); ++dx) {
                centre[dx] = centre[-dx] = falloff.weight(falloff.distances(dy)[dx]);
            }
        }
    }

    /// The sources in rows [firstRow, endRow) of the strip, in the order in which their light is added up.
    void collect(const LightStrip& strip, int firstRow, int endRow) {
        found_.clear();
        columnEnds_.assign(strip.rowLength() + 1, 0);
        for (int y = firstRow; y < endRow; ++y) {
            if (strip.sourcesOf(y) == 0) continue;
            const float* const row = strip.row(y);
            for (std::size_t i = 0; i < strip.rowLength(); ++i) {
                if (row[i] == 0.0f) continue;
                found_.push_back({int(i), y, row[i]});
                ++columnEnds_[i + 1];
            }
        }
        for (std::size_t i = 1; i < columnEnds_.size(); ++i) columnEnds_[i] += columnEnds_[i - 1];
        sources_.resize(found_.size());
        for (const LightSource& source : found_) {
            LightSource moved = source;
            moved.x += strip.left();
            sources_[columnEnds_[std::size_t(source.x)]++] = moved;
        }
    }

    /// Adds up the light of all sources for the tile with this corner.
    void light(int left, int top, int height) {
        std::fill(sums_.begin(), sums_.end(), 0.0);
        for (const LightSource& source : sources_) {
            const int first = std::max(top, source.y - falloff_.reachY());
            const int last = std::min(top + height - 1, source.y + falloff_.reachY());
            for (int y = first; y <= last; ++y) {
                lightRow(source, std::abs(y - source.y), left, &sums_[std::size_t(y - top) * kSumsPerRow]);
            }
        }
    }

    /// The light on row y of the tile, in whole levels.
    void levelsOfRow(int y, std::uint8_t* levels) const {
        const double* const sums = &sums_[std::size_t(y) * kSumsPerRow];
        for (int x = 0; x < kTileWidth; ++x) {
            levels[x] = static_cast<std::uint8_t>(static_cast<int>(std::min(sums[x], 255.0)));
        }
    }

 private:
    /// Weights are added by so many at a time; those beyond the circle are 0 and change nothing.
    static constexpr std::size_t kStep = 8;
    static constexpr std::size_t kSumsPerRow = kTileWidth + kStep;

    HWY_INLINE void lightRow(const LightSource& source, int dy, int left, double* HWY_RESTRICT sums) const {
        const int reach = falloff_.rowReach(dy);
        const int first = std::max(left, source.x - reach);
        const int last = std::min(left + kTileWidth - 1, source.x + reach);
        const double light = source.light;
        const double* HWY_RESTRICT weights =
            &weights_[std::size_t(dy) * rowLength_ + std::size_t(first - source.x + falloff_.reachX())];
        sums += first - left;
        for (int x = first; x <= last; x += int(kStep), weights += kStep, sums += kStep) {
            for (std::size_t i = 0; i < kStep; ++i) sums[i] += light * weights[i];
        }
    }

    const GlowFalloff& falloff_;
    std::size_t rowLength_;
    std::vector<double> weights_, sums_;
    std::vector<LightSource> found_, sources_;
    std::vector<std::uint32_t> columnEnds_;
};

/// Lights rows of a tile from all pixels around, in single precision, and where that leaves a doubt in double
/// precision, in the order of the definition.
class GatheredLight {
    using FloatTag = hn::ScalableTag<float>;

 public:
    GatheredLight(const GlowFalloff& falloff, std::size_t rowLength)
        : falloff_(falloff), rowLength_(rowLength), folded_(rowLength * kRowsAtOnce) {}

    /// The light on row y of the picture, in whole levels, for the tile in the middle of the strip.
    void levelsOfRow(const LightStrip& strip, int y, int pictureHeight, std::uint8_t* levels) {
        collectRows(strip, y, pictureHeight);
        estimate(strip, y, pictureHeight);
        for (int x = 0; x < kTileWidth; x += kExactAtOnce) {
            bool certain = true;
            for (int i = x; i < x + kExactAtOnce; ++i) {
                const int lowest = static_cast<int>(std::min(sums_[i] * (1.0 - kError), 255.0));
                const int highest = static_cast<int>(std::min(sums_[i] * (1.0 + kError), 255.0));
                levels[i] = static_cast<std::uint8_t>(lowest);
                certain = certain && lowest == highest;
            }
            if (!certain) addUpExactly(x, levels + x);
        }
    }

 private:
    /// Rows are folded by so many at a time, and sums of so many columns kept in single precision.
    static constexpr int kRowsAtOnce = 16, kColumnsAtOnce = 16;
    static constexpr int kExactAtOnce = 8;
    /// A weight is rounded once, its product once, and then added to at most kColumnsAtOnce others; the sums
    /// themselves are whole numbers. That makes 18 roundings by 2^-24 at most, and what double precision
    /// adds is far less than the rest of this bound.
    static constexpr double kError = 1.0 / (1 << 19);

    /// A row that holds light, and its distance.
    struct Row {
        const float* light;
        int dy;
    };

    void collectRows(const LightStrip& strip, int y, int pictureHeight) {
        rows_.clear();
        const int first = std::max(0, y - falloff_.reachY());
        const int last = std::min(pictureHeight - 1, y + falloff_.reachY());
        for (int row = first; row <= last; ++row) {
            if (strip.sourcesOf(row) != 0) rows_.push_back({strip.row(row), std::abs(row - y)});
        }
    }

    void estimate(const LightStrip& strip, int y, int pictureHeight) {
        std::fill_n(sums_, kTileWidth, 0.0);
        Row folded[kRowsAtOnce];
        int count = 0;
        for (int dy = 0; dy <= falloff_.reachY(); ++dy) {
            const float* const above = lightOf(strip, y - dy, pictureHeight);
            const float* const below = dy == 0 ? nullptr : lightOf(strip, y + dy, pictureHeight);
            if (above != nullptr && below != nullptr) {
                float* const sum = &folded_[std::size_t(count) * rowLength_];
                for (std::size_t i = 0; i < rowLength_; ++i) sum[i] = above[i] + below[i];
                folded[count++] = {sum, dy};
            } else if (above != nullptr || below != nullptr) {
                folded[count++] = {above != nullptr ? above : below, dy};
            }
            if (count == kRowsAtOnce) {
                addRows(folded, count);
                count = 0;
                if (isAllWhite()) return;
            }
        }
        addRows(folded, count);
    }

    [[nodiscard]] static const float* lightOf(const LightStrip& strip, int y, int pictureHeight) {
        return y < 0 || y >= pictureHeight || strip.sourcesOf(y) == 0 ? nullptr : strip.row(y);
    }

    /// Further light would change nothing.
    [[nodiscard]] bool isAllWhite() const { return *std::min_element(sums_, sums_ + kTileWidth) > 256.0; }

    void addRows(const Row* rows, int count) {
        const int step = 4 * int(hn::Lanes(FloatTag()));
        for (int x = 0; x < kTileWidth; x += step) {
            for (int row = 0; row < count; ++row) addRow(rows[row], x);
        }
    }

    /// Adds what one row, or two at the same distance, give to four vectors of pixels from x on.
    HWY_INLINE void addRow(const Row& row, int x) {
        const FloatTag d;
        const std::size_t lanes = hn::Lanes(d);
        const float* const light = row.light + falloff_.reachX() + x;
        const std::uint32_t* const distances = falloff_.distances(row.dy);
        const int reach = falloff_.rowReach(row.dy);
        const auto middle = hn::Set(d, falloff_.roughWeight(distances[0]));
        auto sum0 = hn::Mul(hn::LoadU(d, light), middle);
        auto sum1 = hn::Mul(hn::LoadU(d, light + lanes), middle);
        auto sum2 = hn::Mul(hn::LoadU(d, light + 2 * lanes), middle);
        auto sum3 = hn::Mul(hn::LoadU(d, light + 3 * lanes), middle);
        for (int dx = 1; dx <= reach;) {
            const int end = std::min(reach + 1, dx + kColumnsAtOnce - 1);
            for (; dx < end; ++dx) {
                const auto weight = hn::Set(d, falloff_.roughWeight(distances[dx]));
                const float *const left = light - dx, *const right = light + dx;
                const auto both = [&](std::size_t lane) HWY_ATTR {
                    return hn::Add(hn::LoadU(d, left + lane), hn::LoadU(d, right + lane));
                };
                sum0 = hn::MulAdd(both(0), weight, sum0);
                sum1 = hn::MulAdd(both(lanes), weight, sum1);
                sum2 = hn::MulAdd(both(2 * lanes), weight, sum2);
                sum3 = hn::MulAdd(both(3 * lanes), weight, sum3);
            }
            if (dx > reach) break;
            addToSums(sum0, sum1, sum2, sum3, x);
            sum0 = sum1 = sum2 = sum3 = hn::Zero(d);
        }
        addToSums(sum0, sum1, sum2, sum3, x);
    }

    template <class V>
    HWY_INLINE void addToSums(V sum0, V sum1, V sum2, V sum3, int x) {
        const FloatTag d;
        const std::size_t lanes = hn::Lanes(d);
        HWY_ALIGN float sums[4 * hn::MaxLanes(FloatTag())];
        hn::Store(sum0, d, sums);
        hn::Store(sum1, d, sums + lanes);
        hn::Store(sum2, d, sums + 2 * lanes);
        hn::Store(sum3, d, sums + 3 * lanes);
        for (std::size_t i = 0; i < 4 * lanes; ++i) sums_[std::size_t(x) + i] += double{sums[i]};
    }

    /// Column by column from the left, each from the top. Dark pixels add 0, which changes nothing.
    HWY_NOINLINE void addUpExactly(int x, std::uint8_t* levels) const {
        double sums[kExactAtOnce] = {};
        for (int dx = -falloff_.reachX(); dx <= falloff_.reachX(); ++dx) {
            const std::size_t column = std::size_t(falloff_.reachX() + x + dx);
            for (const Row& row : rows_) {
                const double weight = falloff_.weight(falloff_.distances(row.dy)[std::abs(dx)]);
                const float* HWY_RESTRICT light = row.light + column;
                for (int i = 0; i < kExactAtOnce; ++i) sums[i] += double{light[i]} * weight;
            }
        }
        for (int i = 0; i < kExactAtOnce; ++i) {
            levels[i] = static_cast<std::uint8_t>(static_cast<int>(std::min(sums[i], 255.0)));
        }
    }

    const GlowFalloff& falloff_;
    std::size_t rowLength_;
    std::vector<float> folded_;
    std::vector<Row> rows_;
    double sums_[kTileWidth];
};

}  // namespace

void addLight(PixelView source, MutablePixelView target, int level, const GlowFalloff& falloff) {
    LightStrip strip(source, level, falloff);
    ScatteredLight scattered(falloff);
    GatheredLight gathered(falloff, strip.rowLength());
    for (int left = 0; left < source.width; left += kTileWidth) {
        const int width = std::min(kTileWidth, source.width - left);
        strip.start(left);
        for (int top = 0; top < source.height; top += kTileHeight) {
            const int height = std::min(kTileHeight, source.height - top);
            const int firstRow = std::max(0, top - falloff.reachY());
            const int endRow = std::min(source.height, top + height + falloff.reachY());
            strip.takeRows(endRow);
            std::int64_t sources = 0;
            for (int y = firstRow; y < endRow; ++y) sources += strip.sourcesOf(y);

            const bool scatter = sources <= ScatteredLight::kMaxSources;
            if (scatter && sources != 0) {
                scattered.collect(strip, firstRow, endRow);
                scattered.light(left, top, height);
            }
            std::uint8_t levels[kTileWidth] = {};
            for (int y = top; y < top + height; ++y) {
                if (sources != 0 && scatter) scattered.levelsOfRow(y - top, levels);
                if (sources != 0 && !scatter) gathered.levelsOfRow(strip, y, source.height, levels);
                brightenPixels(source.row(y) + left, levels, target.row(y) + left, std::size_t(width));
            }
        }
    }
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(addLight);

namespace {

/// Light that does not reach farther than this is best added up pixel by pixel, and light that reaches
/// farther than the other one never.
constexpr int kShortReach = 30, kLongReach = 256;
/// In between, so many sums per pixel cost as much as a convolution in frequencies.
constexpr double kManySumsPerPixel = 120;

bool isFarGlow(const GlowFalloff& falloff, std::size_t lights, std::size_t pixels) {
    const int reach = std::max(falloff.reachX(), falloff.reachY());
    if (reach <= kShortReach || reach > kLongReach) return reach > kLongReach;
    const double lit = (2.0 * falloff.reachX() + 1) * (2.0 * falloff.reachY() + 1);
    return lit * double(lights) > kManySumsPerPixel * double(pixels);
}

}  // namespace

void addGlow(PixelView source, MutablePixelView target, const Glow& light) {
    const std::size_t lights = light.radius > kShortReach ? countLights(source, light.level) : 1;
    if (lights == 0) {
        const std::vector<std::uint8_t> darkness(std::size_t(source.width));
        for (int y = 0; y < source.height; ++y) {
            brightenPixels(source.row(y), darkness.data(), target.row(y), darkness.size());
        }
        return;
    }
    const GlowFalloff falloff(light.radius, light.intensity, source.width, source.height);
    if (isFarGlow(falloff, lights, source.pixelCount())) {
        addFarGlow(source, target, light.level, falloff, lights);
    } else {
        HWY_DYNAMIC_DISPATCH(addLight)(source, target, light.level, falloff);
    }
}

}  // namespace orvane
#endif
