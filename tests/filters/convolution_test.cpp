#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <functional>
#include <string>

#include "filters/average.h"
#include "filters/blur.h"
#include "filters/convolution_reference.h"
#include "filters/emboss.h"
#include "filters/filter_checks.h"
#include "filters/gaussian_blur.h"
#include "filters/kernels/box_blur.h"
#include "filters/kernels/byte_quotient.h"
#include "filters/kernels/convolve_3x3.h"
#include "filters/kernels/convolve_small.h"
#include "filters/kernels/relief.h"
#include "filters/kernels/ring_convolution.h"
#include "filters/laplas.h"
#include "filters/sharpen.h"
#include "filters/sharpen_edge.h"
#include "filters/smart_blur.h"
#include "filters/sobel.h"
#include "filters/user_effect.h"
#include "support/test_control.h"

namespace orvane {
namespace {

using reference::Picture;
using reference::Weights;
using test::checkOperation;
using test::difference;
using test::kFastBuild;
using test::named;
using test::onEveryTarget;
using test::Operation;

std::vector<Weights> userKernels() {
    return {
        {0, 0, 0, 0, 1, 0, 0, 0, 0},
        {1, 2, 3, 4, 5, 6, 7, 8, 9},
        {-1, -2, -1, 0, 0, 0, 1, 2, 1},
        {1, 0, 1, 0, -8, 0, 1, 0, 1},
        {32767, -32768, 32767, -32768, 32767, -32768, 32767, -32768, 32766},
        {INT_MAX, INT_MIN, 12345678, -7, 100000, 3, INT_MAX, 1, -1},
        {INT_MIN, 0, 0, 0, 0, 0, 0, 0, 0},
        {0, 0, 0, 0, -1, 0, 0, 0, 0},
        {0, 0, 0, 0, 1 << 24, 0, 0, 0, 1},
        {0, 0, 0, 0, 20000, 0, 0, 1, 0},
        {1, 1, 2, 1, 1, 1, 3, 4, 3, 1, 2, 4, 9, 4, 2, 1, 3, 4, 3, 1, 1, 1, 2, 1, 1},
        {-1, -2, 0, 2, 1, -4, -8, 0, 8, 4, -6, -12, 0, 12, 6, -4, -8, 0, 8, 4, -1, -2, 0, 2, 1},
        {9, -3, 70000, 2, -1, 4, 8, 1, 8, -4, 6, 12, 5, -70000, 6, 4, 8, 7, 8, 4, 1, 2, 3, 2, 1},
    };
}

/// Parameters in the middle of their ranges, at their ends and far beyond.
std::vector<Operation> allOperations() {
    std::vector<Operation> all;
    const auto add = [&](std::string name, auto run, auto expected) {
        all.push_back({std::move(name), run, expected});
    };
    for (int r : {1, 2, 3, 7, 10, 30}) {
        add(
            named("blur", r), [r](ImageDocument& d) { blur(d, r); },
            [r](const Picture& p) { return reference::blur(p, r); });
    }
    const int averages[][2] = {{0, 1}, {1, 1},       {-8, 1},      {-7, 1},      {-20, 2},
                               {5, 3}, {INT_MAX, 2}, {INT_MIN, 2}, {1 << 24, 1}, {100000, 9},
                               {7, 0}, {0, 0},       {-3, 0},      {3, -1},      {3, -8}};
    for (const auto& [weight, radius] : averages) {
        add(
            named("average", weight, radius),
            [w = weight, r = radius](ImageDocument& d) { average(d, w, r); },
            [w = weight, r = radius](const Picture& p) { return reference::average(p, w, r); });
    }
    const int gaussians[][2] = {{1, 1},  {2, 1},  {3, 1},        {3, 100},     {5, 7},
                                {10, 1}, {25, 1}, {12, 1000000}, {9, INT_MAX}, {7, 3000}};
    for (const auto& [radius, fallOff] : gaussians) {
        add(
            named("gaussianBlur", radius, fallOff),
            [r = radius, b = fallOff](ImageDocument& d) { gaussianBlur(d, r, b); },
            [r = radius, b = fallOff](const Picture& p) { return reference::gaussianBlur(p, r, b); });
    }
    const int smart[][2] = {{1, 0},  {1, 40},   {2, 254}, {3, 30},     {3, 255},
                            {7, 60}, {20, 100}, {2, -1},  {4, INT_MAX}};
    for (const auto& [radius, level] : smart) {
        add(
            named("smartBlur", radius, level),
            [r = radius, l = level](ImageDocument& d) { smartBlur(d, r, l); },
            [r = radius, l = level](const Picture& p) { return reference::smartBlur(p, r, l); });
    }
    add("sharpen", sharpen, reference::sharpen);
    for (int level : {INT_MIN, 0, 1, 30, 100, 254, 255, 256, INT_MAX}) {
        add(
            named("sharpenEdge", level), [=](ImageDocument& d) { sharpenEdge(d, level); },
            [=](const Picture& p) { return reference::sharpenEdge(p, level); });
    }
    add("laplas", laplas, reference::laplas);
    for (int type : {0, 1, 2, 3, 7, -1}) {
        add(
            named("sobel", type), [=](ImageDocument& d) { sobel(d, type); },
            [=](const Picture& p) { return reference::sobel(p, type); });
    }
    for (int direction : {0, 1, 2, 3, 4, 5, 6, 7, 8, -1, INT_MIN}) {
        for (int distance : {1, -10, 10, 3, 0}) {
            add(
                named("emboss", distance, direction),
                [=](ImageDocument& d) { emboss(d, distance, direction); },
                [=](const Picture& p) { return reference::emboss(p, distance, direction); });
        }
    }
    for (const Weights& weights : userKernels()) {
        add(
            named("userEffect", weights[0], weights[1]), [=](ImageDocument& d) { userEffect(d, weights); },
            [=](const Picture& p) { return reference::userEffect(p, weights); });
    }
    return all;
}

/// Smooth in parts, so that ranges and quotients meet their limits, and with every alpha.
Picture picture(int width, int height, unsigned seed) {
    Picture result{width, height, test::randomPicture(std::size_t(width) * std::size_t(height), seed)};
    for (std::size_t i = 0; i < result.pixels.size(); ++i) {
        const auto part = i * 4 / result.pixels.size();
        if (part == 1) result.pixels[i] = (result.pixels[i] & 0xFF070F1Fu) + 0x00303030u;
        if (part == 2) result.pixels[i] |= 0x00F8F8F8u;
    }
    return result;
}

TEST(Convolution, EqualsItsDefinitionsAtEveryWidth) {
    const std::vector<Operation> operations = allOperations();
    for (int width = 2; width <= 70; ++width) {
        const int height = 2 + width * 23 % (kFastBuild ? 37 : 17);
        const Picture source = picture(width, height, unsigned(width));
        // Every operation meets every remainder of the vector length; not every parameter every width.
        for (std::size_t i = 0; i < operations.size(); ++i) {
            if ((i + std::size_t(width)) % (kFastBuild ? 3 : 7) == 0) checkOperation(operations[i], source);
        }
    }
}

TEST(Convolution, EqualsItsDefinitionsOnSmallPictures) {
    for (const Operation& operation : allOperations()) {
        checkOperation(operation, picture(2, 2, 1u));
        checkOperation(operation, picture(2, 41, 2u));
        checkOperation(operation, picture(37, 2, 3u));
    }
}

TEST(Convolution, EqualsItsDefinitionsOnAPictureBeyondTheCaches) {
    const Picture source = picture(3001, 2113, 99u);
    for (const Operation& operation : allOperations()) {
        for (const char* name : {"blur 3", "average -8 1", "gaussianBlur 2 1", "smartBlur 1 40", "sharpen",
                                 "sharpenEdge 30", "laplas", "sobel 2", "emboss 3 1", "userEffect 1 2"}) {
            if (operation.name == name && kFastBuild) checkOperation(operation, source);
        }
    }
}

// Pictures of one column or row reach the kernels only from within, and never as a document.
TEST(Convolution, EqualsItsDefinitionsOnOneRowAndOneColumn) {
    const Weights user{1, 2, 3, 4, 5, 6, 7, 8, 9}, rings{20, 9, 9, 2};
    const struct {
        const char* name;
        std::function<void(PixelView, MutablePixelView)> run;
        std::function<std::vector<Argb>(const Picture&)> expected;
    } kernels[] = {
        {"sharpen", sharpenPixels, reference::sharpen},
        {"laplace", laplacePixels, reference::laplas},
        {"sharpen edges", [](PixelView s, MutablePixelView t) { sharpenContrastedPixels(s, t, 20); },
         [](const Picture& p) { return reference::sharpenEdge(p, 20); }},
        {"gradient", [](PixelView s, MutablePixelView t) { gradientPixels(s, t, Rising::Down); },
         [](const Picture& p) { return reference::sobel(p, 2); }},
        {"relief",
         [](PixelView s, MutablePixelView t) {
             reliefPixels(s, t, {7, -7});
         },
         [](const Picture& p) { return reference::emboss(p, 7, 1); }},
        {"user", [&](PixelView s, MutablePixelView t) { convolveSmall(s, t, user); },
         [&](const Picture& p) { return reference::userEffect(p, user); }},
        {"box", [](PixelView s, MutablePixelView t) { boxBlurPixels(s, t, 5); },
         [](const Picture& p) { return reference::blur(p, 5); }},
        {"vast box", [](PixelView s, MutablePixelView t) { boxBlurPixels(s, t, 1451); },
         [](const Picture& p) { return reference::blur(p, 1451); }},
        {"centred box", [](PixelView s, MutablePixelView t) { centredBoxPixels(s, t, -5, 4); },
         [](const Picture& p) { return reference::average(p, -5, 4); }},
        {"rings", [&](PixelView s, MutablePixelView t) { convolveRings(s, t, rings); },
         [](const Picture& p) {
             Weights weights;
             for (int i = 0; i < 49; ++i) {
                 const int ring = std::max(std::abs(i / 7 - 3), std::abs(i % 7 - 3));
                 weights.push_back(ring == 0 ? 20 : ring == 3 ? 2 : 9);
             }
             return reference::convolve(p, weights, 7);
         }},
    };
    const IntSize sizes[] = {{1, 1}, {1, 2}, {1, 9}, {3, 1}, {17, 1}, {64, 1}, {99, 1}};
    for (const auto& [width, height] : sizes) {
        const Picture source = picture(width, height, unsigned(width + height));
        for (const auto& kernel : kernels) {
            const bool vast = std::string(kernel.name) == "vast box";
            if (vast && width * height > 3) continue;  // its definition takes millions of steps a pixel
            const std::vector<Argb> expected = kernel.expected(source);
            onEveryTarget([&, w = width, h = height] {
                constexpr Argb kGuard = 0x5AC35AC3u;
                std::vector<Argb> target(expected.size() + 2, kGuard);
                kernel.run(source.view(), {target.data() + 1, w, h, w});
                EXPECT_TRUE(target.front() == kGuard && target.back() == kGuard) << kernel.name;
                const std::vector<Argb> actual(target.begin() + 1, target.end() - 1);
                EXPECT_EQ(difference(actual, expected, w), "") << kernel.name << ", " << w << " x " << h;
            });
        }
    }
}

/// How often the places -radius..radius around `centre` fall on each of `count` places, ends repeated.
std::vector<std::uint64_t> visits(int centre, int radius, int count) {
    std::vector<std::uint64_t> times(std::size_t(count), 1);
    const std::int64_t first = std::int64_t{centre} - radius, last = std::int64_t{centre} + radius;
    for (int i = 0; i < count; ++i) times[std::size_t(i)] = i >= first && i <= last;
    times[0] += std::uint64_t(std::max<std::int64_t>(0, -first));
    times[std::size_t(count) - 1] += std::uint64_t(std::max<std::int64_t>(0, last - count + 1));
    return times;
}

__extension__ using Wide = unsigned __int128;

/// A box mean by multiplicities, for radii whose windows cannot be walked; the sum cut to 32 bits when
/// `wraps`.
std::vector<Argb> wideBlur(const Picture& p, int radius, int centreWeight, bool wraps) {
    const Wide side = 2 * Wide(unsigned(radius)) + 1;
    return reference::eachPixelOf(p, [&](int x, int y) {
        const auto across = visits(x, radius, p.width), down = visits(y, radius, p.height);
        unsigned levels[3];
        for (int c = 0; c < 3; ++c) {
            const auto level = [&](int i, int j) {
                return (p.clampedAt(i, j) >> reference::kShifts[c]) & 255u;
            };
            Wide sum = 0;
            for (int i = 0; i < p.width; ++i) {
                for (int j = 0; j < p.height; ++j) {
                    sum += Wide(across[std::size_t(i)]) * down[std::size_t(j)] * level(i, j);
                }
            }
            const auto extra = static_cast<std::uint32_t>(centreWeight) - 1u;
            levels[c] = wraps ? reference::dividedByte(std::uint32_t(sum) + extra * level(x, y),
                                                       std::uint32_t(side * side) + extra)
                              : static_cast<unsigned>(sum / (side * side));
        }
        return makeOpaque(levels[0], levels[1], levels[2]);
    });
}

TEST(Convolution, RadiiFarBeyondThePictureStayExact) {
    const Picture source = picture(19, 11, 4u);
    for (int radius : {40, 63, 64, 81, 128, 129, 500, 1450, 1451, 20000, 1 << 20, INT_MAX}) {
        const Operation operation{named("blur", radius), [=](ImageDocument& d) { blur(d, radius); },
                                  [=](const Picture& p) { return wideBlur(p, radius, 1, false); }};
        checkOperation(operation, source);
    }
    for (int radius : {60, 200, 1451, 11584}) {
        const Operation smart{named("smartBlur", radius),
                              [=](ImageDocument& d) { smartBlur(d, radius, 255); },
                              [=](const Picture& p) { return wideBlur(p, radius, 1, true); }};
        checkOperation(smart, source);
        for (int weight : {1, 0, -1000}) {
            const Operation operation{named("average", weight, radius),
                                      [=](ImageDocument& d) { average(d, weight, radius); },
                                      [=](const Picture& p) { return wideBlur(p, radius, weight, true); }};
            checkOperation(operation, source);
        }
    }
    const Picture small = picture(5, 3, 4u);
    for (int radius : {60, 64, 100}) {
        for (int fallOff : {1, 50}) {
            const Operation operation{
                named("gaussianBlur", radius, fallOff),
                [=](ImageDocument& d) { gaussianBlur(d, radius, fallOff); },
                [=](const Picture& p) { return reference::gaussianBlur(p, radius, fallOff); }};
            checkOperation(operation, small);
        }
    }
    ImageDocument document;
    test::loadPicture(document, source.pixels, source.width, source.height);
    gaussianBlur(document, 11584, 1);
    EXPECT_TRUE(document.undoEnabled());
}

TEST(Convolution, SinglePrecisionDividesExactlyWhereItSaysSo) {
    int accepted = 0;
    for (std::int32_t divisor = 1; divisor <= 70000; divisor += divisor < 300 ? 1 : 331) {
        if (!singlePrecisionDivides(divisor)) continue;
        ++accepted;
        const ByteReciprocal<float> by(divisor);
        for (std::int32_t sum = 0; sum <= 255 * divisor; sum += 1 + divisor / 500) {
            const float product = static_cast<float>(sum) * by.reciprocal;
            const float biased = product + by.bias;
            ASSERT_EQ(std::int32_t((biased + kRoundingWeight) - kRoundingWeight), sum / divisor) << divisor;
        }
    }
    EXPECT_GT(accepted, 300 + 8192 / 331);
    // Blurs of common radii stay in single precision.
    for (int side = 3; side <= 121; side += 2) EXPECT_TRUE(singlePrecisionDivides(side * side)) << side;
}

TEST(Convolution, RefusedParametersChangeNothing) {
    const struct {
        const char* name;
        void (*run)(ImageDocument&);
        bool accepted;
    } rows[] = {
        {"blur 0", [](ImageDocument& d) { blur(d, 0); }, false},
        {"blur INT_MIN", [](ImageDocument& d) { blur(d, INT_MIN); }, false},
        {"blur 1", [](ImageDocument& d) { blur(d, 1); }, true},
        {"gaussianBlur 0 1", [](ImageDocument& d) { gaussianBlur(d, 0, 1); }, false},
        {"gaussianBlur 1 0", [](ImageDocument& d) { gaussianBlur(d, 1, 0); }, false},
        {"gaussianBlur INT_MAX 1", [](ImageDocument& d) { gaussianBlur(d, INT_MAX, 1); }, false},
        {"gaussianBlur 1 INT_MIN", [](ImageDocument& d) { gaussianBlur(d, 1, INT_MIN); }, false},
        {"smartBlur 0 9", [](ImageDocument& d) { smartBlur(d, 0, 9); }, false},
        {"smartBlur INT_MIN 9", [](ImageDocument& d) { smartBlur(d, INT_MIN, 9); }, false},
        {"smartBlur INT_MAX 9", [](ImageDocument& d) { smartBlur(d, INT_MAX, 9); }, false},
        {"average 0 -9", [](ImageDocument& d) { average(d, 0, -9); }, false},
        {"average 0 INT_MIN", [](ImageDocument& d) { average(d, 0, INT_MIN); }, false},
        {"average 0 INT_MAX", [](ImageDocument& d) { average(d, 0, INT_MAX); }, false},
        {"average 0 -8", [](ImageDocument& d) { average(d, 0, -8); }, true},
        {"emboss 11", [](ImageDocument& d) { emboss(d, 11, 0); }, false},
        {"emboss -11", [](ImageDocument& d) { emboss(d, -11, 0); }, false},
        {"emboss INT_MIN", [](ImageDocument& d) { emboss(d, INT_MIN, 0); }, false},
        {"emboss -10", [](ImageDocument& d) { emboss(d, -10, 0); }, true},
        {"userEffect of 16", [](ImageDocument& d) { userEffect(d, Weights(16, 1)); }, false},
        {"userEffect of none", [](ImageDocument& d) { userEffect(d, {}); }, false},
        {"userEffect of 25", [](ImageDocument& d) { userEffect(d, Weights(25, 1)); }, true},
    };
    const Picture source = picture(5, 3, 3u);
    for (const auto& row : rows) {
        ImageDocument document, empty;
        test::loadPicture(document, source.pixels, 5, 3);
        row.run(document);
        row.run(empty);
        EXPECT_EQ(document.undoEnabled(), row.accepted) << row.name;
        EXPECT_EQ(document.modified, row.accepted) << row.name;
        EXPECT_EQ(test::pictureOf(document) == source.pixels, !row.accepted) << row.name;
        EXPECT_TRUE(empty.isEmpty() && !empty.modified) << row.name;
    }
}

TEST(Convolution, SkippedPixelsKeepTheirAlphaAndAStepIsMadeAnyway) {
    const Picture source = picture(9, 9, 3u);
    void (*const skippingAll[])(ImageDocument&) = {[](ImageDocument& d) { sharpenEdge(d, 256); },
                                                   [](ImageDocument& d) { smartBlur(d, 3, -1); }};
    for (const auto run : skippingAll) {
        ImageDocument document;
        test::loadPicture(document, source.pixels, 9, 9);
        run(document);
        EXPECT_EQ(test::pictureOf(document), source.pixels);
        EXPECT_TRUE(document.undoEnabled() && document.modified);
    }
}

TEST(Convolution, MembersRedrawExceptForAMissingKernel) {
    TestControl control;
    control.call("NewImage", {8, 8});
    const Value::Longs copying{0, 0, 0, 0, 1, 0, 0, 0, 0}, wrong(16, 1);
    const struct {
        Value weights;
        long redraws;
        bool step;
    } rows[] = {{Value(), 0, false},
                {Value(wrong), 1, false},
                {Value(Value::Longs()), 1, false},
                {Value(copying), 1, true}};
    for (const auto& row : rows) {
        control.redraws();
        control.call("UserEffect", {row.weights});
        EXPECT_EQ(control.redraws(), row.redraws);
        EXPECT_EQ(control.flag("UndoEnable"), row.step);
    }
    control.redraws();
    control.call("Blur", {0});
    EXPECT_EQ(control.redraws(), 1);
}

}  // namespace
}  // namespace orvane
