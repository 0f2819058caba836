#include "filters/glow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <numeric>
#include <set>

#include "filters/artistic_reference.h"
#include "filters/filter_checks.h"
#include "filters/kernels/even_glow.h"
#include "filters/kernels/fourier_transform.h"
#include "filters/kernels/glow_falloff.h"
#include "filters/kernels/light_columns.h"
#include "filters/kernels/light_source.h"
#include "filters/kernels/light_sums.h"

namespace orvane {
namespace {

using reference::Picture;
using test::checkOperation;
using test::kFastBuild;
using test::named;
using test::onEveryTarget;
using test::Operation;

Operation glowing(int level, int radius, int intensity) {
    return {named("glow", level, radius, intensity),
            [=](ImageDocument& d) { glow(d, level, radius, intensity); },
            [=](const Picture& p) { return reference::glow(p, level, radius, intensity); }};
}

/// Grey pixels, of which one in `spacing` shines from level 200 on; they repeat after `lights` of them.
Picture sky(int width, int height, unsigned spacing, unsigned lights) {
    Picture picture{width, height, std::vector<Argb>(std::size_t(width) * std::size_t(height))};
    for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
        const unsigned shuffled = unsigned(i) * 2654435761u >> 12;
        const unsigned grey = shuffled % spacing == 0 ? 200 + shuffled / spacing % lights : shuffled % 64;
        picture.pixels[i] = makeOpaque(grey, grey, grey);
    }
    return picture;
}

TEST(FourierTransform, IsTheSumOfTurnedNumbersInBitReversedOrder) {
    for (std::size_t length : {1u, 2u, 4u, 8u, 16u, 64u, 512u}) {
        const FourierTransform fourier(length);
        onEveryTarget([&] {
            std::vector<double> real(length), imaginary(length), frequencies(length);
            for (std::size_t i = 0; i < length; ++i) {
                real[i] = double(i * 37 % 11);
                imaginary[i] = double(i * 53 % 7) - 3;
            }
            const std::vector<double> firstReal = real, firstImaginary = imaginary;
            fourier.transform(real.data(), imaginary.data());
            for (std::size_t place = 0; place < length; ++place) {
                std::size_t frequency = 0;
                for (std::size_t bit = 1; bit < length; bit *= 2) {
                    frequency = 2 * frequency + (place & bit ? 1 : 0);
                }
                frequencies[place] = double(frequency);
                double expectedReal = 0, expectedImaginary = 0;
                for (std::size_t i = 0; i < length; ++i) {
                    const double angle =
                        -2 * 3.14159265358979323846 * double(frequency * i % length) / double(length);
                    expectedReal += firstReal[i] * std::cos(angle) - firstImaginary[i] * std::sin(angle);
                    expectedImaginary += firstImaginary[i] * std::cos(angle) + firstReal[i] * std::sin(angle);
                }
                EXPECT_NEAR(real[place], expectedReal, 1e-9) << length << ", " << place;
                EXPECT_NEAR(imaginary[place], expectedImaginary, 1e-9) << length << ", " << place;
            }
            for (std::size_t place = 0; place < length; ++place) {
                const double opposite = frequencies[FourierTransform::mirrored(place)];
                EXPECT_EQ(std::fmod(frequencies[place] + opposite, double(length)), 0.0) << place;
            }
            fourier.restore(real.data(), imaginary.data());
            for (std::size_t i = 0; i < length; ++i) {
                EXPECT_NEAR(real[i] / double(length), firstReal[i], 1e-12) << length << ", " << i;
                EXPECT_NEAR(imaginary[i] / double(length), firstImaginary[i], 1e-12) << length << ", " << i;
            }
        });
    }
}

// Sums of millions of shares are taken in runs, and must end on the same last bit.
TEST(GlowFalloff, WeighsAsIfAllSharesWereAddedUpOneByOne) {
    for (int radius : {1, 2, 50, 4000, 3000000, kFastBuild ? 70000000 : 5000000}) {
        for (int intensity : {1, 2, 3, 100, 5000, 40000000, INT_MAX}) {
            const GlowFalloff falloff(radius, intensity, 40, 30);
            const double k = (intensity - 1.0) / radius;
            double sum = 0;
            for (int d = 0; d <= radius; ++d) sum += 1 / (d * k + 1);
            for (int d = 1; d <= std::min(radius, 40); ++d) {
                ASSERT_EQ(falloff.weight(std::uint32_t(d)), intensity * (1 / (d * k + 1)) / (765 * sum))
                    << radius << ", " << intensity << ", " << d;
            }
        }
    }
}

TEST(LightSums, AreAsNearAsTheySayWithAnyMemory) {
    const IntSize sizes[] = {{45, 38}, {1, 1}, {1, 70}, {70, 1}, {2, 300}, {300, 3}};
    for (const auto& [width, height] : sizes) {
        const Picture picture = sky(width, height, 3, 50);
        for (int radius : {3, 40, 1000}) {
            const GlowFalloff falloff(radius, 4, width, height);
            for (std::size_t bytes : {std::size_t{1}, std::size_t{20000}, kSpectrumBytes}) {
                const LightSums sums = estimateLight(picture.view(), 200, falloff, bytes);
                EXPECT_LT(sums.error, 1e-9);
                double farthest = 0;
                for (int i = 0; i < width * height; ++i) {
                    double sum = 0;
                    for (int j = 0; j < width * height; ++j) {
                        const int dx = std::abs(i % width - j % width), dy = std::abs(i / width - j / width);
                        if (dx > falloff.reachX() || dy > falloff.reachY()) continue;
                        sum += lightOf(picture.pixels[std::size_t(j)], 200) *
                               falloff.weight(falloff.distances(dy)[dx]);
                    }
                    farthest = std::max(farthest, std::abs(sum - sums.values[std::size_t(i)]));
                }
                // The sums taken here have errors of their own.
                EXPECT_LT(farthest, sums.error + 1e-12) << width << " x " << height << ", " << radius;
            }
        }
    }
}

TEST(Glow, IsExactWhenLightReachesFar) {
    const IntSize sizes[] = {{61, 53}, {2, 400}, {400, 2}, {33, 9}};
    for (const auto& [width, height] : sizes) {
        for (unsigned spacing : {1u, 2u, 30u}) {
            const Picture picture = sky(width, height, spacing, 56);
            for (const auto& [radius, intensity] :
                 {std::pair(31, 3), std::pair(47, 1), std::pair(300, 40), std::pair(100000, 1 << 30)}) {
                checkOperation(glowing(200, radius, intensity), picture);
            }
        }
    }
}

/// Lights of thirds of 765, up to so many each and so many together.
Picture thirds(unsigned brightest, unsigned together) {
    Picture picture{49, 40, std::vector<Argb>(49 * 40, 0xFF102030u)};
    for (std::size_t i = 0; together > 0; i = (i + 611) % picture.pixels.size()) {
        const unsigned light = std::min(together, 1 + unsigned(i) % brightest);
        picture.pixels[i] = makeOpaque(85 * light, 85 * light, 85 * light);
        together -= light;
    }
    return picture;
}

// With intensity 1 all weights are the same, and sums meet whole numbers as soon as the lights add up. Then
// the order of the terms decides on which side of the number they end.
TEST(Glow, IsExactOnWholeNumbers) {
    for (unsigned brightest : {1u, 2u, 3u}) {
        // All lights, or all but a pixel's own one, are 360 times 765; from radius 62 on all reach all
        // pixels.
        for (unsigned own : {0u, 1u, 2u}) {
            const Picture picture = thirds(brightest, 3 * 360 + own);
            for (int radius : {39, 59, 71, 89, 119, 179, 359})
                checkOperation(glowing(85, radius, 1), picture);
        }
    }
}

// Weights around those that bring all lights but one to a whole number, a last place apart each: there sums
// that lack the same light at different places end on different sides of it.
TEST(EvenLight, TellsEverySumThatLacksAPixelsOwnLight) {
    constexpr int kWidth = 43, kHeight = 31;
    const Picture picture = sky(kWidth, kHeight, 2, 7);
    LightColumns lights;
    lights.take(picture.view(), 200);
    const std::vector<std::uint16_t>& inOrder = lights.inOrder();
    const int total = std::accumulate(inOrder.begin(), inOrder.end(), 0);
    const auto sumWithout = [&](std::size_t own, double weight) {
        double sum = 0;
        for (std::size_t i = 0; i < inOrder.size(); ++i) sum += i == own ? 0.0 : inOrder[i] * weight;
        return sum;
    };
    int divided = 0;  // weights for which place decides
    for (int own = 600; own <= 618; own += 3) {
        const auto first = std::size_t(std::find(inOrder.begin(), inOrder.end(), own) - inOrder.begin());
        for (int levels : {1, 2, 3, 5, 6, 11, 100}) {
            const double roughly = double(levels) / (total - own);
            double weight = roughly * (levels / sumWithout(first, roughly));
            for (int i = 0; i < 5; ++i) weight = std::nextafter(weight, 0);
            for (int places = 0; places < 10; ++places, weight = std::nextafter(weight, 1)) {
                EvenLight even;
                std::set<int> seen;
                for (std::size_t i = 0; i < inOrder.size(); ++i) {
                    if (inOrder[i] != own && i % 97 != 0) continue;
                    const int expected = int(sumWithout(i, weight)), x = int(i) / kHeight,
                              y = int(i) % kHeight;
                    ASSERT_EQ(even.levelsAt(lights, weight, x, y), expected)
                        << own << ", " << levels << ", " << places << ", " << i;
                    if (inOrder[i] == own) seen.insert(expected);
                }
                divided += seen.size() > 1;
            }
        }
    }
    EXPECT_GT(divided, 3);
}

TEST(Glow, AnyRadiusEndsSoon) {
    const Picture picture = sky(40, 20, 5, 9);
    for (int radius : {INT_MAX, INT_MAX - 1}) {
        const Operation dim{named("glow", radius, 1), [=](ImageDocument& d) { glow(d, 200, radius, 1); },
                            [](const Picture& p) { return p.pixels; }};
        checkOperation(dim, picture);
    }
    ImageDocument document;
    test::loadPicture(document, picture.pixels, 40, 20);
    glow(document, 200, INT_MAX, INT_MAX);
    EXPECT_EQ(test::pictureOf(document), std::vector<Argb>(800, 0xFFFFFFFFu));
}

}  // namespace
}  // namespace orvane
