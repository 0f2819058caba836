#include "platform/graphics/stretch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "platform/graphics/source_over.h"
#include "support/every_target.h"

namespace orvane {
namespace {

struct Picture {
    int width, height;
    std::vector<Argb> pixels;

    Picture(int w, int h, Argb colour = 0)
        : width(w), height(h), pixels(std::size_t(w) * std::size_t(h), colour) {}
    MutablePixelView view() { return {pixels.data(), width, height, width}; }
    [[nodiscard]] PixelView view() const { return {pixels.data(), width, height, width}; }
};

Picture randomPicture(int width, int height, bool opaque, unsigned seed) {
    std::mt19937 random(seed);
    Picture picture(width, height);
    for (Argb& p : picture.pixels) {
        p = Argb(random());
        if (opaque)
            p |= 0xFF000000u;
        else if (random() % 3 == 0)
            p &= 0x00FFFFFFu;
    }
    return picture;
}

// The weight of every source pixel in one destination pixel, straight from the definition.
std::vector<double> axisWeights(int source, int destination, int position) {
    std::vector<double> weights(std::size_t(source), 0.0);
    const double step = double(source) / destination;
    if (destination >= source) {
        const double centre = std::clamp((position + 0.5) * step - 0.5, 0.0, double(source - 1));
        const int first = std::min(int(centre), source - 1), second = std::min(first + 1, source - 1);
        weights[std::size_t(first)] += 1 - (centre - first);
        weights[std::size_t(second)] += centre - first;
    } else {
        for (int i = 0; i < source; ++i) {
            const double overlap =
                std::min((position + 1) * step, i + 1.0) - std::max(position * step, double(i));
            weights[std::size_t(i)] = std::max(overlap, 0.0) / step;
        }
    }
    return weights;
}

struct Average {
    double a, r, g, b;
};

Average weightedAverage(const Picture& picture, const std::vector<double>& wx,
                        const std::vector<double>& wy) {
    Average sum{};
    for (int y = 0; y < picture.height; ++y) {
        if (wy[std::size_t(y)] == 0.0) continue;
        for (int x = 0; x < picture.width; ++x) {
            const Argb p = picture.view().at(x, y);
            const double alpha = wx[std::size_t(x)] * wy[std::size_t(y)] * alphaOf(p);
            sum.a += alpha, sum.r += alpha * redOf(p), sum.g += alpha * greenOf(p),
                sum.b += alpha * blueOf(p);
        }
    }
    return sum.a == 0 ? Average{} : Average{sum.a, sum.r / sum.a, sum.g / sum.a, sum.b / sum.a};
}

void expectStretched(const Picture& picture, IntSize size, const Picture& result) {
    std::vector<std::vector<double>> columns;
    for (int x = 0; x < size.width; ++x) columns.push_back(axisWeights(picture.width, size.width, x));
    for (int y = 0; y < size.height; ++y) {
        const std::vector<double> row = axisWeights(picture.height, size.height, y);
        for (int x = 0; x < size.width; ++x) {
            const Argb p = result.view().at(x, y);
            const Average exact = weightedAverage(picture, columns[std::size_t(x)], row);
            bool near = std::abs(alphaOf(p) - exact.a) <= 1.0;
            if (alphaOf(p) == 0)
                near = near && p == 0;
            else
                near = near && std::abs(redOf(p) - exact.r) <= 1.0 && std::abs(greenOf(p) - exact.g) <= 1.0 &&
                       std::abs(blueOf(p) - exact.b) <= 1.0;
            ASSERT_TRUE(near) << picture.width << "x" << picture.height << " to " << size.width << "x"
                              << size.height << " at " << x << "," << y << std::hex << ": " << p << " for "
                              << exact.a << " " << exact.r << " " << exact.g << " " << exact.b;
        }
    }
}

Picture stretched(const Picture& picture, bool opaque, IntSize size) {
    Picture result(size.width, size.height, 0xDEADBEEFu);
    drawStretched({picture.view(), opaque}, {0, 0, size.width, size.height}, result.view(),
                  StretchMode::Replace);
    return result;
}

const struct {
    IntSize source, destination;
} kSizes[] = {
    {{1, 1}, {7, 5}},     {{9, 7}, {1, 1}},       {{1, 40}, {1, 13}},   {{1, 40}, {9, 13}},
    {{40, 1}, {61, 1}},   {{40, 1}, {7, 3}},      {{37, 29}, {36, 28}}, {{37, 29}, {38, 30}},
    {{64, 48}, {32, 24}}, {{64, 48}, {16, 12}},   {{64, 48}, {21, 17}}, {{37, 29}, {80, 11}},
    {{37, 29}, {11, 80}}, {{37, 29}, {37, 11}},   {{37, 29}, {80, 29}}, {{2, 2}, {97, 90}},
    {{300, 3}, {700, 9}}, {{2500, 4}, {1900, 3}}, {{3000, 2}, {2, 2}},  {{5003, 3}, {3, 2}},
    {{3, 700}, {2, 2}},   {{200, 150}, {31, 23}},
};

void checkAgainstDefinition() {
    for (const auto& row : kSizes) {
        for (bool opaque : {true, false}) {
            const Picture picture = randomPicture(row.source.width, row.source.height, opaque, 5);
            const Picture result = stretched(picture, opaque, row.destination);
            expectStretched(picture, row.destination, result);
            if (testing::Test::HasFatalFailure()) return;
        }
    }
}

TEST(Stretch, IsWithinOneLevelOfTheDefinition) { test::onEveryTarget(checkAgainstDefinition); }

TEST(Stretch, IsTheSameWithEveryInstructionSet) {
    for (const auto& row : kSizes) {
        for (bool opaque : {true, false}) {
            const Picture picture = randomPicture(row.source.width, row.source.height, opaque, 6);
            const Picture expected = stretched(picture, opaque, row.destination);
            test::onEveryTarget(
                [&] { ASSERT_EQ(stretched(picture, opaque, row.destination).pixels, expected.pixels); });
        }
    }
}

TEST(Stretch, SameSizeCopiesEveryWord) {
    const Picture picture = randomPicture(41, 17, false, 1);
    EXPECT_EQ(stretched(picture, false, {41, 17}).pixels, picture.pixels);
}

TEST(Stretch, ConstantPicturesStayConstant) {
    for (Argb colour : {0xFF000000u, 0xFFFFFFFFu, 0xFF7F8081u, 0x80FF40C1u, 0x01FFFFFFu}) {
        const Picture picture(53, 1500, colour);
        for (IntSize size : {IntSize{53, 1499}, {52, 700}, {7, 3}, {54, 1501}, {300, 1600}, {100, 10}}) {
            const Picture result = stretched(picture, alphaOf(colour) == 255, size);
            EXPECT_EQ(result.pixels, Picture(size.width, size.height, colour).pixels)
                << std::hex << colour << std::dec << " to " << size.width << "x" << size.height;
        }
    }
}

TEST(Stretch, TransparentPixelsLendNoColour) {
    // Red beside transparent green: every visible pixel in between must be pure red.
    Picture picture(8, 8, 0x0000FF00u);
    for (int y = 0; y < 8; ++y) std::fill_n(picture.view().row(y), 4, 0xFFFF0000u);
    for (IntSize size : {IntSize{3, 3}, {7, 7}, {29, 29}}) {
        for (Argb p : stretched(picture, false, size).pixels) {
            EXPECT_TRUE(p == 0 || (p & 0x00FFFFFFu) == 0x00FF0000u) << std::hex << p;
        }
    }
}

TEST(Stretch, NeitherClipNorPlacementChangesAPixel) {
    std::mt19937 random(3);
    const Picture picture = randomPicture(90, 70, false, 2), solid = randomPicture(90, 70, true, 2);
    for (int round = 0; round < 400; ++round) {
        const bool opaque = round % 2 == 0;
        const StretchSource source{opaque ? solid.view() : picture.view(), opaque};
        const IntSize size{1 + int(random() % 200), 1 + int(random() % 150)};
        const IntRect destination{int(random() % 60) - 40, int(random() % 60) - 40, size.width, size.height};
        const IntRect clip{int(random() % 60) - 10, int(random() % 60) - 10, int(random() % 60),
                           int(random() % 60)};
        const StretchMode mode = round % 4 < 2 ? StretchMode::Over : StretchMode::Replace;

        const Picture before = randomPicture(50, 40, false, unsigned(round));
        Picture after = before;
        drawStretched(source, destination, clip, after.view(), mode);
        const Picture whole = stretched(opaque ? solid : picture, opaque, size);
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 50; ++x) {
                const bool drawn = destination.contains({x, y}) && clip.contains({x, y});
                const Argb old = before.view().at(x, y);
                Argb expected = old;
                if (drawn) {
                    const Argb p = whole.view().at(x - destination.x, y - destination.y);
                    expected = mode == StretchMode::Over ? sourceOver(p, old) : p;
                }
                ASSERT_EQ(after.view().at(x, y), expected) << "round " << round << " at " << x << "," << y;
            }
        }
    }
}

TEST(Stretch, SurvivesRectanglesBeyondAnyBound) {
    constexpr int kMost = 2147483647, kLeast = -2147483647 - 1;
    const Picture picture(3, 3, 0xFF102030u);
    const IntRect empty[] = {{},
                             {5, 5, 0, 9},
                             {5, 5, 9, -4},
                             {kMost, 0, kMost, 5},
                             {20, 0, 5, 5},
                             {0, -9, 5, 9},
                             {kLeast, kLeast, kMost, kMost}};
    for (const IntRect& destination : empty) {
        Picture target(20, 20, 1);
        drawStretched({picture.view(), true}, destination, target.view(), StretchMode::Over);
        EXPECT_EQ(target.pixels, Picture(20, 20, 1).pixels) << destination.x << "," << destination.width;
    }
    const IntRect covering[] = {{kLeast / 2, kLeast / 2, kMost, kMost},
                                {-5, -7, kMost, kMost},
                                {kLeast + 40, kLeast + 40, kMost, kMost}};
    for (const IntRect& destination : covering) {
        Picture target(20, 20, 1);
        drawStretched({picture.view(), true}, destination, {kLeast, kLeast, kMost, kMost}, target.view(),
                      StretchMode::Over);
        EXPECT_EQ(target.pixels, Picture(20, 20, 1).pixels) << "the clip ends at -1";
        drawStretched({picture.view(), true}, destination, {kLeast / 2, 0, kMost, kMost}, target.view(),
                      StretchMode::Over);
        EXPECT_EQ(target.pixels, Picture(20, 20, 0xFF102030u).pixels) << destination.x;
    }
    Picture target(20, 20, 1);
    drawStretched({}, {0, 0, 20, 20}, target.view(), StretchMode::Over);
    EXPECT_EQ(target.pixels, Picture(20, 20, 1).pixels) << "nothing to draw";
}

}  // namespace
}  // namespace orvane
