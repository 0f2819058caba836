#include "filters/kernels/median_window.h"

#include <gtest/gtest.h>

#include <climits>

#include "filters/kernels/median_histograms.h"
#include "filters/rank_reference.h"
#include "support/every_target.h"
#include "support/pictures.h"

namespace orvane {
namespace {

using test::onEveryTarget;
using test::randomPicture;

using MedianKernel = void (*)(PixelView, MutablePixelView, int);

void expectMedians(MedianKernel kernel, const std::vector<Argb>& picture, int width, int height, int radius,
                   const std::vector<Argb>& expected) {
    constexpr Argb kGuard = 0x5AC35AC3u;
    std::vector<Argb> raster(picture.size() + 2, kGuard);
    kernel({picture.data(), width, height, width}, {raster.data() + 1, width, height, width}, radius);
    EXPECT_EQ(raster.front(), kGuard);
    EXPECT_EQ(raster.back(), kGuard);
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), raster.begin() + 1))
        << width << " x " << height << ", radius " << radius;
}

TEST(Median, EqualsTheDefinitionAtEverySizeAndRadius) {
    struct Case {
        int width, height, radius;
    };
    std::vector<Case> cases = {{1, 1, 1},   {1, 1, 300},      {1, 50, 2},      {50, 1, 3},    {2, 2, INT_MAX},
                               {90, 9, 40}, {9, 90, INT_MAX}, {30, 20, 40000}, {700, 3, 5},   {260, 5, 4},
                               {41, 41, 6}, {35, 52, 127},    {52, 35, 128},   {600, 4, 130}, {1300, 3, 2}};
    for (int width = 2; width <= 70; ++width) cases.push_back({width, 2 + width % 11, width % 7});
    for (int radius : {0, 1, 2, 3, 4, 5, 8, 12, 19, 32767, 32768}) cases.push_back({37, 29, radius});
    for (const auto& c : cases) {
        const auto picture = randomPicture(std::size_t(c.width * c.height), unsigned(c.width));
        const auto expected =
            reference::rankFilter(picture, c.width, c.height, c.radius, reference::middleRank);
        onEveryTarget([&] {
            expectMedians(medianOfWindow, picture, c.width, c.height, c.radius, expected);
            expectMedians(medianByHistograms, picture, c.width, c.height, c.radius, expected);
        });
    }
}

/// Only the order counts for a network, so zeros and ones tell everything: a network that picks the middle of
/// every such window picks it from all.
TEST(Median, NetworksPickTheMiddleOfEveryMixtureOfTwoValues) {
    constexpr int kSide = 64;
    for (int percent : {30, 45, 50, 55, 70}) {
        std::vector<Argb> picture = randomPicture(kSide * kSide, unsigned(percent));
        for (Argb& word : picture) {
            const auto level = [&](int shift) {
                return (word >> shift & 255u) * 100 < percent * 256u ? 0u : 255u;
            };
            word = makeArgb(0, level(16), level(8), level(0));
        }
        for (int radius = 1; radius <= 5; ++radius) {
            std::vector<Argb> expected(picture.size());
            medianByHistograms({picture.data(), kSide, kSide, kSide}, {expected.data(), kSide, kSide, kSide},
                               radius);
            onEveryTarget([&] { expectMedians(medianOfWindow, picture, kSide, kSide, radius, expected); });
        }
    }
}

TEST(Median, OfAVeryWidePictureIsThatOfTheTurnedOne) {
    constexpr int kLength = 40000, kRadius = 9000;
    const auto wide = randomPicture(2 * kLength, 6u);
    std::vector<Argb> turned(wide.size()), expected(wide.size());
    for (std::size_t i = 0; i < kLength; ++i) {
        turned[2 * i] = wide[i];
        turned[2 * i + 1] = wide[kLength + i];
    }
    std::vector<Argb> medians(wide.size());
    medianOfWindow({turned.data(), 2, kLength, 2}, {medians.data(), 2, kLength, 2}, kRadius);
    for (std::size_t i = 0; i < kLength; ++i) {
        expected[i] = medians[2 * i];
        expected[kLength + i] = medians[2 * i + 1];
    }
    expectMedians(medianOfWindow, wide, kLength, 2, kRadius, expected);
    expectMedians(medianByHistograms, wide, kLength, 2, kRadius, expected);
}

}  // namespace
}  // namespace orvane
