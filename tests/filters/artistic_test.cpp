#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <functional>
#include <string>

#include "filters/aquarelle.h"
#include "filters/artistic_reference.h"
#include "filters/diffuse.h"
#include "filters/filter_checks.h"
#include "filters/focal_bw.h"
#include "filters/glow.h"
#include "filters/glowing_edge.h"
#include "filters/kernels/add_glow.h"
#include "filters/kernels/convolve_3x3.h"
#include "filters/kernels/displace_pixels.h"
#include "filters/kernels/fade_to_grey.h"
#include "filters/kernels/mosaic_tiles.h"
#include "filters/kernels/soften_around.h"
#include "filters/mosaic.h"
#include "filters/soft_focus.h"

namespace orvane {
namespace {

using reference::Picture;
using test::checkOperation;
using test::difference;
using test::kFastBuild;
using test::named;
using test::onEveryTarget;
using test::Operation;

constexpr std::uint32_t kSeed = 0x2468ACE1u;

/// Parameters in the middle of their ranges, at their ends and far beyond.
std::vector<Operation> allOperations() {
    std::vector<Operation> all;
    const auto add = [&](std::string name, auto run, auto expected) {
        all.push_back({std::move(name), run, expected});
    };
    for (int type : {0, 1, -5}) {
        for (int r : {1, 2, 5, 16, 40, INT_MAX}) {
            add(
                named("mosaic", type, r), [=](ImageDocument& d) { mosaic(d, type, r); },
                [=](const Picture& p) { return reference::mosaic(p, type, r); });
        }
    }
    const int circles[][4] = {{10, 20, 15, 12},
                              {0, 0, -1000, 2000},
                              {0, 60, 30, 30},
                              {3, 0, 2, 2},
                              {20, -7, 10, 40},
                              {-50, 70, 5, 5},
                              {INT_MIN, INT_MAX, 0, 0},
                              {INT_MAX, INT_MAX, 7, 7},
                              {INT_MAX, 1, INT_MIN, INT_MAX},
                              {2147480000, 3648, INT_MIN, 20},
                              {1, INT_MAX, 9, 9},
                              {5, 1, 9, 9}};
    for (const auto& c : circles) {
        add(
            named("focalBW", c[0], c[1], c[2], c[3]),
            [=, r1 = c[0], r2 = c[1], x = c[2], y = c[3]](ImageDocument& d) { focalBW(d, r1, r2, x, y); },
            [=, r1 = c[0], r2 = c[1], x = c[2], y = c[3]](const Picture& p) {
                return reference::focalBW(p, r1, r2, x, y);
            });
    }
    for (int r : {0, 1, 2, 3, 7, 50}) {
        add(
            named("aquarelle", r), [=](ImageDocument& d) { aquarelle(d, r); },
            [=](const Picture& p) { return reference::aquarelle(p, r); });
    }
    const int focuses[][5] = {{1, 10, 8, 15, 12},
                              {3, 5, 1, 0, 20},
                              {8, 4, 30, 9, 9},
                              {9, 4, 12, 30, -6},
                              {21, 1, 1, 2, 2},
                              {2, 1, 40, -10, 5},
                              {4, 1000, 1, 3, 3},
                              {2, 7, 32768, 3, 3},
                              {2, 7, 32769, 3, 3},
                              {3, 1, 4210000, 5, 5},
                              {2, 2, INT_MAX, 5, 5},
                              {1, INT_MAX, INT_MAX, INT_MIN, INT_MAX},
                              {1, 2147480000, 3700, INT_MIN, 30},
                              {2, INT_MAX, 1, 0, 0}};
    for (const auto& c : focuses) {
        add(
            named("softFocus", c[0], c[1], c[2], c[3], c[4]),
            [=, n = c[0], r1 = c[1], r2 = c[2], x = c[3], y = c[4]](ImageDocument& d) {
                softFocus(d, n, r1, r2, x, y);
            },
            [=, n = c[0], r1 = c[1], r2 = c[2], x = c[3], y = c[4]](const Picture& p) {
                return reference::softFocus(p, n, r1, r2, x, y);
            });
    }
    for (int reach : {1, 2, 9, 300, 70000, 1 << 30, INT_MAX}) {
        add(
            named("diffuse", reach),
            [=](ImageDocument& d) {
                SharedRandomStream::giveBack(RandomStream(kSeed));
                diffuse(d, reach);
            },
            [=](const Picture& p) {
                RandomStream stream(kSeed);
                return reference::diffuse(p, reach, stream);
            });
    }
    const int lights[][3] = {{1, 1, 1},    {1, 10, 5},       {120, 3, 30},    {200, 10, 100},   {250, 7, 2},
                             {255, 25, 1}, {256, 3, 3},      {INT_MAX, 2, 2}, {1, 20, INT_MAX}, {40, 40, 8},
                             {1, 300, 1},  {230, 5000, 400}, {90, 17, 12}};
    for (const auto& c : lights) {
        add(
            named("glow", c[0], c[1], c[2]),
            [=, l = c[0], r = c[1], i = c[2]](ImageDocument& d) { glow(d, l, r, i); },
            [=, l = c[0], r = c[1], i = c[2]](const Picture& p) { return reference::glow(p, l, r, i); });
        add(
            named("glowingEdge", c[0], c[1], c[2]),
            [=, l = c[0], r = c[1], i = c[2]](ImageDocument& d) { glowingEdge(d, l, r, i); },
            [=, l = c[0], r = c[1], i = c[2]](const Picture& p) {
                return reference::glowingEdge(p, l, r, i);
            });
    }
    const int noLights[][3] = {{0, 5, 5}, {5, 0, 5}, {5, 5, INT_MIN}};
    for (const auto& c : noLights) {
        add(
            named("glowingEdge", c[0], c[1], c[2]),
            [=, l = c[0], r = c[1], i = c[2]](ImageDocument& d) { glowingEdge(d, l, r, i); },
            [=, l = c[0], r = c[1], i = c[2]](const Picture& p) {
                return reference::glowingEdge(p, l, r, i);
            });
    }
    return all;
}

/// Every alpha, or only that of an opaque picture.
Picture picture(int width, int height, unsigned seed, bool opaque = false) {
    Picture result{width, height, test::randomPicture(std::size_t(width) * std::size_t(height), seed)};
    for (std::size_t i = 0; i < result.pixels.size(); ++i) {
        const auto part = i * 4 / result.pixels.size();
        if (part == 1) result.pixels[i] = (result.pixels[i] & 0xFF070F1Fu) + 0x00303030u;
        if (part == 2) result.pixels[i] |= 0x00F8F8F8u;
        if (opaque || part == 3) result.pixels[i] |= 0xFF000000u;
    }
    return result;
}

TEST(Artistic, EqualTheirDefinitionsAtEveryWidth) {
    const std::vector<Operation> operations = allOperations();
    for (int width = 2; width <= 70; ++width) {
        const int height = 2 + width * 23 % (kFastBuild ? 37 : 17);
        const Picture source = picture(width, height, unsigned(width), width % 2 == 0);
        // Every operation meets every remainder of the vector length; not every parameter every width.
        for (std::size_t i = 0; i < operations.size(); ++i) {
            if ((i + std::size_t(width)) % (kFastBuild ? 3 : 7) == 0) checkOperation(operations[i], source);
        }
    }
}

TEST(Artistic, EqualTheirDefinitionsOnSmallPictures) {
    for (const Operation& operation : allOperations()) {
        checkOperation(operation, picture(2, 2, 1u));
        checkOperation(operation, picture(2, 41, 2u));
        checkOperation(operation, picture(37, 2, 3u));
    }
}

TEST(Artistic, EqualTheirDefinitionsOnAPictureBeyondTheCaches) {
    const Picture source = picture(3001, 2113, 99u, true);
    for (const Operation& operation : allOperations()) {
        for (const char* name :
             {"mosaic 1 5", "mosaic 0 16", "mosaic 1 40", "focalBW 10 20 15 12", "softFocus 9 4 12 30 -6",
              "diffuse 9", "glow 120 3 30", "glow 250 7 2", "glowingEdge 120 3 30"}) {
            if (operation.name == name && kFastBuild) checkOperation(operation, source);
        }
    }
}

// Pictures of one column or row reach the kernels only from within, and never as a document.
TEST(Artistic, EqualTheirDefinitionsOnOneRowAndOneColumn) {
    const FocusCircle circle{3, 5, 4, 1};
    const struct {
        const char* name;
        std::function<void(PixelView, MutablePixelView)> run;
        std::function<std::vector<Argb>(const Picture&)> expected;
    } kernels[] = {
        {"mosaic", [](PixelView s, MutablePixelView t) { mosaicTiles(s, t, TileColour::Mean, 1); },
         [](const Picture& p) { return reference::mosaic(p, 1, 1); }},
        {"fade", [&](PixelView s, MutablePixelView t) { fadeToGrey(s, t, circle); },
         [](const Picture& p) { return reference::focalBW(p, 3, 5, 4, 1); }},
        {"soften", [&](PixelView s, MutablePixelView t) { softenAround(s, t, circle, 11); },
         [](const Picture& p) { return reference::softFocus(p, 11, 3, 5, 4, 1); }},
        {"displace",
         [](PixelView s, MutablePixelView t) {
             RandomStream stream(kSeed);
             displacePixels(s, t, 6, stream);
         },
         [](const Picture& p) {
             RandomStream stream(kSeed);
             return reference::diffuse(p, 6, stream);
         }},
        {"glow",
         [](PixelView s, MutablePixelView t) {
             addGlow(s, t, {90, 6, 9});
         },
         [](const Picture& p) { return reference::glow(p, 90, 6, 9); }},
        {"outline", outlinePixels, [](const Picture& p) { return reference::glowingEdge(p, 0, 0, 0); }},
    };
    const IntSize sizes[] = {{1, 1}, {1, 2}, {1, 9}, {3, 1}, {17, 1}, {64, 1}, {139, 1}, {1, 70}};
    for (const auto& [width, height] : sizes) {
        const Picture source = picture(width, height, unsigned(width + height));
        for (const auto& kernel : kernels) {
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

// Above 128 rows the sums of a tile outgrow 16 bits, above 4100 columns 32.
TEST(Artistic, LargeTilesAreExact) {
    for (int radius : {127, 128, 129, 300}) {
        const Operation operation{named("mosaic", 1, radius), [=](ImageDocument& d) { mosaic(d, 1, radius); },
                                  [=](const Picture& p) { return reference::mosaic(p, 1, radius); }};
        checkOperation(operation, picture(2 * radius + 9, radius + 40, 5u));
        checkOperation(operation, picture(radius + 1, 3 * radius, 6u));
    }
    const Picture white{2501, 2501, std::vector<Argb>(2501u * 2501u, 0xFFFFFFFFu)};
    const Operation wrapping{"mosaic 1 2500", [](ImageDocument& d) { mosaic(d, 1, 2500); },
                             [](const Picture& p) { return reference::mosaic(p, 1, 2500); }};
    checkOperation(wrapping, white);
}

TEST(Artistic, FocalGreyIsExactForAllColours) {
    constexpr int kSide = 4096;
    Picture colours{kSide, kSide, std::vector<Argb>(std::size_t(kSide) * kSide)};
    for (std::size_t i = 0; i < colours.pixels.size(); ++i) colours.pixels[i] = Argb(i);
    const Operation operation{"focalBW 0 0", [](ImageDocument& d) { focalBW(d, 0, 0, 0, 0); },
                              [](const Picture& p) { return reference::focalBW(p, 0, 0, 0, 0); }};
    if (kFastBuild) checkOperation(operation, colours);
}

// The picture comes to rest, or repeats itself, after a while; from then on only the count of passes
// matters.
TEST(Artistic, AnyNumberOfPassesEnds) {
    const Picture source = picture(23, 19, 12u);
    for (int passes : {64, 1000, 1003}) {
        const Operation operation{
            named("softFocus", passes), [=](ImageDocument& d) { softFocus(d, passes, 3, 4, 8, 8); },
            [=](const Picture& p) { return reference::softFocus(p, passes, 3, 4, 8, 8); }};
        checkOperation(operation, source);
    }
    ImageDocument thousand, endless;
    test::loadPicture(thousand, source.pixels, 23, 19);
    test::loadPicture(endless, source.pixels, 23, 19);
    softFocus(thousand, 1007, 3, 4, 8, 8);
    softFocus(endless, INT_MAX, 3, 4, 8, 8);  // 1007 and a multiple of 8
    EXPECT_EQ(test::pictureOf(endless), test::pictureOf(thousand));
}

// Weights of the rim add up to anything from 10 to 65544, powers of two and their neighbours among it.
TEST(Artistic, SoftFocusDividesExactlyByAllWeights) {
    const Picture source = picture(301, 3, 4u);
    for (int rim : {2, 30, 140, 255, 256, 300, 2000, 4090, 16380, 16384, 32640, 32767, 32768}) {
        const Operation operation{named("softFocus rim", rim),
                                  [=](ImageDocument& d) { softFocus(d, 1, 1, rim, 0, 1); },
                                  [=](const Picture& p) { return reference::softFocus(p, 1, 1, rim, 0, 1); }};
        checkOperation(operation, source);
    }
}

TEST(Artistic, DiffuseLeavesTheStreamWhereTheLastDrawDoes) {
    const Picture source = picture(31, 17, 2u);
    onEveryTarget([&] {
        ImageDocument document, empty;
        test::loadPicture(document, source.pixels, 31, 17);
        SharedRandomStream::giveBack(RandomStream(kSeed));
        diffuse(empty, 4);
        diffuse(document, 0);
        EXPECT_EQ(SharedRandomStream::take().state(), kSeed);
        diffuse(document, 4);
        RandomStream walked(kSeed);
        for (int draw = 0; draw < 2 * 31 * 17; ++draw) walked.next();
        EXPECT_EQ(SharedRandomStream::take().state(), walked.state());
    });
}

// Sums that lie on whole numbers, or next to them, are where the order of the terms shows.
TEST(Artistic, GlowOfFlatPicturesIsExact) {
    for (unsigned level : {1u, 17u, 51u, 85u, 170u, 255u}) {
        Picture flat{149, 61, std::vector<Argb>(149 * 61, makeOpaque(level, level, level))};
        const int lights[][3] = {{1, 1, 1}, {1, 2, 1}, {1, 4, 1}, {1, 9, 3}, {1, 16, 1}};
        for (const auto& c : lights) {
            const Operation operation{
                named("glow of", level, c[1], c[2]),
                [=, r = c[1], i = c[2]](ImageDocument& d) { glow(d, 1, r, i); },
                [=, r = c[1], i = c[2]](const Picture& p) { return reference::glow(p, 1, r, i); }};
            checkOperation(operation, flat);
        }
    }
}

TEST(Artistic, GlowIsExactFromOneLightToAll) {
    for (unsigned share : {1u, 3u, 10u, 30u, 100u, 300u, 1000u}) {  // in thousands
        Picture sky{277, 131, test::randomPicture(277 * 131, share)};
        for (std::size_t i = 0; i < sky.pixels.size(); ++i) {
            const bool lit = i * 7919 % 1000 < share;
            sky.pixels[i] = lit ? sky.pixels[i] | 0x00E0E0E0u : sky.pixels[i] & 0xFF3F3F3Fu;
        }
        for (int radius : {4, 12, 33}) {
            const Operation operation{named("glow", share, radius),
                                      [=](ImageDocument& d) { glow(d, 224, radius, 4); },
                                      [=](const Picture& p) { return reference::glow(p, 224, radius, 4); }};
            checkOperation(operation, sky);
        }
    }
}

TEST(Artistic, RefusedParametersChangeNothing) {
    const struct {
        const char* name;
        void (*run)(ImageDocument&);
        bool accepted, changes;
    } rows[] = {
        {"mosaic 0 0", [](ImageDocument& d) { mosaic(d, 0, 0); }, false, false},
        {"mosaic 1 INT_MIN", [](ImageDocument& d) { mosaic(d, 1, INT_MIN); }, false, false},
        {"mosaic 1 9", [](ImageDocument& d) { mosaic(d, 1, 9); }, true, false},
        {"mosaic 1 1", [](ImageDocument& d) { mosaic(d, 1, 1); }, true, true},
        {"aquarelle -1", [](ImageDocument& d) { aquarelle(d, -1); }, false, false},
        {"aquarelle INT_MIN", [](ImageDocument& d) { aquarelle(d, INT_MIN); }, false, false},
        {"aquarelle 0", [](ImageDocument& d) { aquarelle(d, 0); }, true, true},
        {"softFocus 0 1 1", [](ImageDocument& d) { softFocus(d, 0, 1, 1, 0, 0); }, false, false},
        {"softFocus 1 0 1", [](ImageDocument& d) { softFocus(d, 1, 0, 1, 0, 0); }, false, false},
        {"softFocus 1 1 0", [](ImageDocument& d) { softFocus(d, 1, 1, 0, 0, 0); }, false, false},
        {"softFocus 1 1 INT_MIN", [](ImageDocument& d) { softFocus(d, 1, 1, INT_MIN, 0, 0); }, false, false},
        {"softFocus 1 1 1", [](ImageDocument& d) { softFocus(d, 1, 1, 1, 0, 0); }, true, true},
        {"diffuse 0", [](ImageDocument& d) { diffuse(d, 0); }, false, false},
        {"diffuse INT_MIN", [](ImageDocument& d) { diffuse(d, INT_MIN); }, false, false},
        {"diffuse 1", [](ImageDocument& d) { diffuse(d, 1); }, true, true},
        {"glow 0 1 1", [](ImageDocument& d) { glow(d, 0, 1, 1); }, false, false},
        {"glow 1 0 1", [](ImageDocument& d) { glow(d, 1, 0, 1); }, false, false},
        {"glow 1 1 0", [](ImageDocument& d) { glow(d, 1, 1, 0); }, false, false},
        {"glow 1 INT_MIN 1", [](ImageDocument& d) { glow(d, 1, INT_MIN, 1); }, false, false},
        {"glow 1 INT_MAX 1", [](ImageDocument& d) { glow(d, 1, INT_MAX, 1); }, true, true},
        {"glowingEdge 0 0 0", [](ImageDocument& d) { glowingEdge(d, 0, 0, 0); }, true, true},
        {"focalBW 99 0 0 0", [](ImageDocument& d) { focalBW(d, 99, 0, 0, 0); }, true, false},
    };
    const Picture source = picture(9, 9, 3u);
    for (const auto& row : rows) {
        ImageDocument document, empty;
        test::loadPicture(document, source.pixels, 9, 9);
        row.run(document);
        row.run(empty);
        EXPECT_EQ(document.undoEnabled(), row.accepted) << row.name;
        EXPECT_EQ(document.modified, row.accepted) << row.name;
        EXPECT_EQ(test::pictureOf(document) != source.pixels, row.changes) << row.name;
        EXPECT_TRUE(empty.isEmpty() && !empty.modified) << row.name;
    }
}

}  // namespace
}  // namespace orvane
