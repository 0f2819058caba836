#include "filters/kernels/window_extremes.h"

#include <gtest/gtest.h>

#include <climits>

#include "filters/rank_reference.h"
#include "support/every_target.h"
#include "support/pictures.h"

namespace orvane {
namespace {

using test::onEveryTarget;
using test::randomPicture;

constexpr Argb kGuard = 0x5AC35AC3u;

/// A picture inside a larger raster, whose other words must neither count nor change.
struct Framed {
    Framed(int w, int h, unsigned seed) : width(w), height(h), pixels(randomPicture(count(), seed)) {}
    [[nodiscard]] std::size_t count() const { return std::size_t(width + 2) * std::size_t(height + 2); }
    PixelView view() const { return {pixels.data() + width + 3, width, height, width + 2}; }
    std::vector<Argb> picture() const {
        std::vector<Argb> words;
        for (int y = 0; y < height; ++y) words.insert(words.end(), view().row(y), view().row(y) + width);
        return words;
    }
    int width, height;
    std::vector<Argb> pixels;
};

std::vector<Argb> extremes(Extreme extreme, const Framed& source, int radius) {
    std::vector<Argb> raster(source.count(), kGuard);
    const MutablePixelView target{raster.data() + source.width + 3, source.width, source.height,
                                  source.width + 2};
    windowExtreme(extreme, source.view(), target, radius);
    std::vector<Argb> result;
    for (int y = 0; y < source.height; ++y) {
        result.insert(result.end(), target.row(y), target.row(y) + source.width);
        EXPECT_EQ(target.row(y)[-1], kGuard);
        EXPECT_EQ(target.row(y)[source.width], kGuard);
    }
    return result;
}

TEST(WindowExtremes, EqualTheDefinitionAtEverySize) {
    struct Case {
        int width, height, radius;
    };
    std::vector<Case> cases = {{1, 1, 0},  {1, 1, 9},   {1, 40, 3},   {2, 2, INT_MAX}, {40, 1, 20},
                               {64, 3, 5}, {70, 70, 2}, {33, 47, 70}, {700, 9, 30},    {1100, 5, 3}};
    for (int width = 2; width <= 70; ++width) cases.push_back({width, 3 + width % 9, width % 13});
    for (int radius : {0, 1, 2, 3, 7, 8, 10, 15, 16, 25, 31, 32, 40, INT_MAX})
        cases.push_back({37, 29, radius});
    for (const auto& c : cases) {
        const Framed source(c.width, c.height, unsigned(c.width * c.height));
        const auto low =
            reference::rankFilter(source.picture(), c.width, c.height, c.radius, reference::lowestRank);
        const auto high =
            reference::rankFilter(source.picture(), c.width, c.height, c.radius, reference::highestRank);
        onEveryTarget([&] {
            EXPECT_EQ(extremes(Extreme::Minimum, source, c.radius), low)
                << c.width << " x " << c.height << ", radius " << c.radius;
            EXPECT_EQ(extremes(Extreme::Maximum, source, c.radius), high)
                << c.width << " x " << c.height << ", radius " << c.radius;
        });
    }
}

TEST(WindowExtremes, LocalRangeOfAnyColumnsIsMaximumLessMinimum) {
    const Framed source(90, 31, 4u);
    const auto words = source.picture();
    for (int radius : {0, 1, 4, 20, 100}) {
        const auto low = reference::rankFilter(words, 90, 31, radius, reference::lowestRank);
        const auto high = reference::rankFilter(words, 90, 31, radius, reference::highestRank);
        onEveryTarget([&] {
            const int columns[][2] = {{0, 90}, {0, 1}, {17, 40}, {89, 1}};
            for (const auto& [first, count] : columns) {
                LocalRangeRows ranges(source.view(), radius, first, count);
                for (std::size_t y = 0; y < 31; ++y) {
                    const Argb* const row = ranges.nextRow();
                    for (std::size_t x = 0; x < std::size_t(count); ++x) {
                        const std::size_t i = y * 90 + std::size_t(first) + x;
                        ASSERT_EQ(row[x], high[i] - low[i]) << "radius " << radius << ", column " << x;
                    }
                }
            }
        });
    }
}

}  // namespace
}  // namespace orvane
