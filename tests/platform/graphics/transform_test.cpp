#include "platform/graphics/transform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>
#include <vector>

#include "platform/graphics/sample_rows.h"
#include "platform/graphics/source_over.h"
#include "support/every_target.h"
#include "support/pictures.h"

namespace orvane {
namespace {

using sample_rows::Line;

constexpr double kRadians = 0.017453292519943295;

struct Raster {
    int width, height;
    std::vector<Argb> pixels;

    Raster(int w, int h, Argb colour = 0x5A3C5A3Cu)
        : width(w), height(h), pixels(std::size_t(w) * std::size_t(h), colour) {}
    MutablePixelView view() { return {pixels.data(), width, height, width}; }
    [[nodiscard]] PixelView view() const { return {pixels.data(), width, height, width}; }
};

Raster randomRaster(int width, int height, bool opaque, unsigned seed) {
    Raster raster(width, height);
    raster.pixels = test::randomPicture(raster.pixels.size(), seed);
    for (Argb& p : raster.pixels) {
        if (opaque) p |= 0xFF000000u;
    }
    return raster;
}

AffineMap turned(double degrees, double scale, IntSize about, double x, double y) {
    return AffineMap::translation(x, y)
        .after(AffineMap::rotation(degrees * kRadians))
        .after(AffineMap::scaling(scale, scale))
        .after(AffineMap::translation(-about.width * 0.5, -about.height * 0.5));
}

Argb pixelAt(const PixelView& source, double x, double y) {
    return source.at(int(std::clamp(x, 0.0, source.width - 1.0)),
                     int(std::clamp(y, 0.0, source.height - 1.0)));
}

/// The colour between the four pixels around a point, straight from the definition.
struct Exact {
    double a = 0, r = 0, g = 0, b = 0;

    Exact(const PixelView& source, PlanePoint point) {
        const double x = std::floor(point.x - 0.5), y = std::floor(point.y - 0.5);
        for (int k = 0; k < 4; ++k) {
            const double px = x + k % 2, py = y + k / 2;
            const double weight = (1 - std::fabs(point.x - 0.5 - px)) * (1 - std::fabs(point.y - 0.5 - py));
            const Argb p = pixelAt(source, px, py);
            const double share = weight * alphaOf(p);
            a += share, r += share * redOf(p), g += share * greenOf(p), b += share * blueOf(p);
        }
        if (a > 0) r /= a, g /= a, b /= a;
    }
    [[nodiscard]] bool isNear(Argb p) const {
        if (std::fabs(alphaOf(p) - a) > 1.0) return false;
        // Colours of nearly transparent pixels weigh next to nothing, and so does their error.
        const double error = 1.0 + 2.0 / std::max(a, 0.01);
        return alphaOf(p) == 0 || (std::fabs(redOf(p) - r) <= error && std::fabs(greenOf(p) - g) <= error &&
                                   std::fabs(blueOf(p) - b) <= error);
    }
};

void expectInterpolated(const Raster& source, bool opaque, const AffineMap& map) {
    Raster target(61, 47);
    const IntRect all{0, 0, 61, 47};
    drawTransformed({source.view(), opaque}, map, all, all, target.view(), StretchMode::Replace);
    for (int y = 0; y < 47; ++y) {
        for (int x = 0; x < 61; ++x) {
            const Exact exact(source.view(), map({x + 0.5, y + 0.5}));
            ASSERT_TRUE(exact.isNear(target.view().at(x, y)))
                << source.width << "x" << source.height << " at " << x << "," << y << std::hex << ": "
                << target.view().at(x, y) << " for " << exact.a << " " << exact.r << " " << exact.g << " "
                << exact.b;
        }
    }
}

TEST(DrawTransformed, InterpolatesBetweenTheFourPixelsAroundAPoint) {
    const IntSize target{61, 47};
    test::onEveryTarget([&] {
        for (const IntSize size : {IntSize{53, 41}, {300, 200}, {1, 1}, {2, 40}, {40, 1}, {1, 7}}) {
            for (bool opaque : {true, false}) {
                const Raster source = randomRaster(size.width, size.height, opaque, 7u);
                const double x = size.width * 0.5, y = size.height * 0.5;
                for (double angle : {0.0, -45.0, 7.0, 30.0, 90.0, 180.0}) {
                    expectInterpolated(source, opaque, turned(angle, 0.8, target, x, y));
                }
                expectInterpolated(source, opaque, {0.3, 0.2, -3.5, -0.1, 1.7, 0.25});
            }
        }
    });
}

/// The sum of the opaque kernel, in the order in which it is defined.
Argb interpolatedLevels(const PixelView& source, std::int64_t x, std::int64_t y) {
    const auto mixed = [](int from, int to, int weight) {
        return from + (((to - from) * weight + (1 << 14)) >> 15);
    };
    const auto weight = [](std::int64_t position) { return int((position >> 17) & 0x7FFF); };
    const double left = double(x >> 32), top = double(y >> 32);
    Argb word = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const auto level = [&](int dx, int dy) {
            return int((pixelAt(source, left + dx, top + dy) >> shift) & 255u) << 7;
        };
        const int a = mixed(level(0, 0), level(0, 1), weight(y));
        const int b = mixed(level(1, 0), level(1, 1), weight(y));
        word |= Argb((mixed(a, b, weight(x)) + 64) >> 7) << shift;
    }
    return word;
}

TEST(SampleRows, GiveTheSameWordsOnEveryMachine) {
    constexpr Argb kGuard = 0x0BADCAFEu;
    const Raster source = randomRaster(37, 29, true, 9u);
    const auto pixels = [](double value) { return std::int64_t(std::ldexp(value, 32)); };
    const Line lines[] = {
        {pixels(3.25), pixels(4.75), pixels(0.73), pixels(0.61)},
        {pixels(-9.5), pixels(27.9), pixels(0.97), pixels(-0.31)},  // in over the left edge, along the lower
        {pixels(36.999), pixels(0), pixels(-1.5), pixels(0)},
        {pixels(5), pixels(-3), pixels(0), pixels(2)},
    };
    test::onEveryTarget([&] {
        for (const Line& line : lines) {
            for (std::size_t count = 0; count <= 35; ++count) {
                std::vector<Argb> row(count + 2, kGuard);
                sample_rows::sampleOpaque(source.view(), line, line, count, row.data() + 1);
                EXPECT_EQ(row.front(), kGuard);
                EXPECT_EQ(row.back(), kGuard);
                for (std::size_t i = 0; i < count; ++i) {
                    const auto n = std::int64_t(i);
                    ASSERT_EQ(row[i + 1], interpolatedLevels(source.view(), line.x + n * line.stepX,
                                                             line.y + n * line.stepY))
                        << i << " of " << count;
                }
            }
        }
    });
}

TEST(DrawTransformed, TheIdentityAndQuarterTurnsMoveWholePixels) {
    test::onEveryTarget([&] {
        for (bool opaque : {true, false}) {
            Raster source = randomRaster(300, 300, opaque, 3u);
            for (Argb& p : source.pixels) {
                if (alphaOf(p) == 0) p = 0;  // what a transparent pixel is drawn as
            }
            const IntRect all{0, 0, 300, 300};
            for (int quarters = 0; quarters < 4; ++quarters) {
                Raster target(300, 300);
                const AffineMap map = turned(quarters * 90.0, 1.0, {300, 300}, 150, 150);
                drawTransformed({source.view(), opaque}, map, all, all, target.view(), StretchMode::Replace);
                for (int y = 0; y < 300; ++y) {
                    for (int x = 0; x < 300; ++x) {
                        const PlanePoint p = map({x + 0.5, y + 0.5});
                        ASSERT_EQ(target.view().at(x, y), pixelAt(source.view(), p.x, p.y))
                            << quarters << " at " << x << "," << y;
                    }
                }
            }
        }
    });
}

TEST(DrawTransformed, DrawsOnlyInsideTheClipAndTheSameThere) {
    for (bool opaque : {true, false}) {
        const Raster source = randomRaster(90, 80, opaque, 5u);
        const AffineMap map = turned(31, 0.7, {600, 70}, 45, 40);
        const IntRect destination{-20, 10, 600, 70};
        Raster whole(400, 100);
        drawTransformed({source.view(), opaque}, map, destination, destination, whole.view(),
                        StretchMode::Over);
        for (const IntRect clip :
             {IntRect{33, 12, 301, 50}, {-5, -5, 9, 18}, {399, 79, 50, 50}, {0, 0, 400, 5}}) {
            Raster part(400, 100), expected(400, 100);
            drawTransformed({source.view(), opaque}, map, destination, clip, part.view(), StretchMode::Over);
            for (int y = 0; y < 100; ++y) {
                for (int x = 0; x < 400; ++x) {
                    if (clip.contains({x, y})) expected.view().at(x, y) = whole.view().at(x, y);
                }
            }
            EXPECT_EQ(part.pixels, expected.pixels) << clip.x << "," << clip.y;
        }
    }
}

TEST(DrawTransformed, LiesOverWhatTheTargetHolds) {
    const Raster source = randomRaster(50, 40, false, 11u);
    const IntRect all{0, 0, 50, 40};
    const AffineMap map = turned(12, 0.9, {50, 40}, 25, 20);
    Raster bare(50, 40), target = randomRaster(50, 40, false, 12u), expected = target;
    drawTransformed({source.view(), false}, map, all, all, bare.view(), StretchMode::Replace);
    drawTransformed({source.view(), false}, map, all, all, target.view(), StretchMode::Over);
    sourceOver(bare.pixels.data(), expected.pixels.data(), expected.pixels.data(), expected.pixels.size());
    EXPECT_EQ(target.pixels, expected.pixels);
}

TEST(DrawTransformed, DrawsNothingThatLeadsNowhere) {
    const double nan = std::numeric_limits<double>::quiet_NaN(), huge = 1e300;
    const Raster source = randomRaster(5, 4, true, 1u), untouched(20, 20);
    const IntRect all{0, 0, 20, 20};
    const struct {
        AffineMap map;
        IntRect destination, clip;
    } rows[] = {
        {{nan, 0, 0, 0, 1, 0}, all, all},
        {{1, 0, 0, 0, 1, huge}, all, all},
        {{1, 0, 0, 0, -huge, 0}, all, all},
        {AffineMap::scaling(0, 1).inverse(), all, all},
        {{1e8, 0, 0, 0, 1, 0}, all, all},
        {{}, {0, 0, 0, 20}, all},
        {{}, {30, 0, 20, 20}, all},
        {{}, all, {0, -5, 20, 5}},
        {{1e3, 0, 0, 0, 1, 0}, {-2000000000, 0, INT_MAX, 20}, all},
    };
    for (const auto& row : rows) {
        Raster target(20, 20);
        drawTransformed({source.view(), true}, row.map, row.destination, row.clip, target.view(),
                        StretchMode::Over);
        EXPECT_EQ(target.pixels, untouched.pixels) << &row - rows;
    }
    Raster target(20, 20);
    drawTransformed({{}, true}, {}, all, all, target.view(), StretchMode::Over);
    EXPECT_EQ(target.pixels, untouched.pixels);

    // Far away, yet near the picture.
    const AffineMap shrunk{1e-9, 0, 0, 0, 1e-9, 0};
    drawTransformed({source.view(), true}, shrunk, {-2000000000, -2000000000, INT_MAX, INT_MAX}, all,
                    target.view(), StretchMode::Over);
    EXPECT_NE(target.pixels, untouched.pixels);
}

}  // namespace
}  // namespace orvane
