#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <functional>
#include <limits>
#include <string>

#include "filters/autocolor.h"
#include "filters/brightness.h"
#include "filters/contrast.h"
#include "filters/desaturate.h"
#include "filters/gamma.h"
#include "filters/hue.h"
#include "filters/invert.h"
#include "filters/kernels/add_noise.h"
#include "filters/kernels/add_to_channels.h"
#include "filters/kernels/channel_range.h"
#include "filters/kernels/desaturate_pixels.h"
#include "filters/kernels/map_channels.h"
#include "filters/kernels/saturate_pixels.h"
#include "filters/lightness.h"
#include "filters/monochrome.h"
#include "filters/noise.h"
#include "filters/point_reference.h"
#include "filters/saturate.h"
#include "filters/temperature.h"
#include "support/every_target.h"
#include "support/pictures.h"

namespace orvane {
namespace {

using reference::Pixels;
using test::loadPicture;
using test::onEveryTarget;
using test::pictureOf;
using test::randomPicture;

#ifdef NDEBUG
constexpr bool kFastBuild = true;
#else
constexpr bool kFastBuild = false;
#endif

constexpr std::uint32_t kNoiseSeed = 0x2468ACE1u;

struct Operation {
    std::string name;
    std::function<void(ImageDocument&)> run;
    std::function<Pixels(const Pixels&)> expected;
};

/// One parameter per channel.
struct PerChannel {
    int r, g, b;
};

/// Parameters in the middle of their ranges, at their ends and far beyond.
std::vector<Operation> allOperations() {
    std::vector<Operation> all;
    const auto add = [&](std::string name, auto run, auto expected) {
        all.push_back({std::move(name), run, expected});
    };
    const auto named = [](const char* name, auto... values) {
        std::string text = name;
        ((text += " " + std::to_string(values)), ...);
        return text;
    };

    add("invert", invert, reference::invert);
    add("desaturate", desaturate, reference::desaturate);
    add("autocolor", autocolor, reference::autocolor);
    add("sepia", sepia, [](const Pixels& p) { return reference::hue(p, 160, 133, 107); });
    for (int n :
         {100, 0, 1, 37, 50, 99, 101, 150, 173, 200, 499, -1, -80, -300, 5000, 1000000, INT_MAX, INT_MIN}) {
        add(
            named("saturate", n), [n](ImageDocument& d) { saturate(d, n); },
            [n](const Pixels& p) { return reference::saturate(p, n); });
        add(
            named("contrast", n), [n](ImageDocument& d) { contrast(d, n); },
            [n](const Pixels& p) { return reference::contrast(p, n); });
    }
    const PerChannel sums[] = {{0, 0, 0},       {10, -20, 30},         {255, -255, 1},
                               {256, -256, -1}, {INT_MAX, INT_MIN, 0}, {-128, 127, INT_MIN}};
    for (const PerChannel& c : sums) {
        add(
            named("brightness", c.r, c.g, c.b), [=](ImageDocument& d) { brightness(d, c.r, c.g, c.b); },
            [=](const Pixels& p) { return reference::brightness(p, c.r, c.g, c.b); });
    }
    const PerChannel scales[] = {
        {100, 100, 100}, {0, 1, 99}, {101, 150, 29}, {255, 57, 1000}, {INT_MAX, 58, 12345}};
    for (const PerChannel& c : scales) {
        add(
            named("lightness", c.r, c.g, c.b), [=](ImageDocument& d) { lightness(d, c.r, c.g, c.b); },
            [=](const Pixels& p) { return reference::lightness(p, c.r, c.g, c.b); });
    }
    for (int n : {-100, -99, -33, 0, 1, 29, 50, 100}) {
        add(
            named("temperature", n), [n](ImageDocument& d) { temperature(d, n); },
            [n](const Pixels& p) { return reference::temperature(p, n); });
    }
    for (double level : {0.02, 0.45, 1.0, 2.2, 10.0, 1e300}) {
        add(
            named("gamma", level), [=](ImageDocument& d) { gamma(d, level); },
            [=](const Pixels& p) { return reference::gamma(p, level); });
    }
    for (int level : {-1, 0, 1, 84, 127, 128, 254, 255, INT_MAX, INT_MIN}) {
        add(
            named("monochrome", level),
            [=](ImageDocument& d) { monochrome(d, level, 0xFF102030u, 0xFFF0E0D0u); },
            [=](const Pixels& p) { return reference::monochrome(p, level, 0xFF102030u, 0xFFF0E0D0u); });
    }
    const PerChannel colours[] = {{0, 0, 0},   {255, 255, 255}, {1, 1, 0},
                                  {0, 255, 0}, {200, 30, 90},   {254, 255, 255}};
    for (const PerChannel& c : colours) {
        add(
            named("hue", c.r, c.g, c.b), [=](ImageDocument& d) { hue(d, c.r, c.g, c.b); },
            [=](const Pixels& p) { return reference::hue(p, c.r, c.g, c.b); });
    }
    for (int type : {0, 1, -7}) {
        for (int level : {0, 1, 31, 255, 256, -40, -255, 100000, INT_MAX, INT_MIN}) {
            add(
                named("noise", type, level),
                [=](ImageDocument& d) {
                    SharedRandomStream::giveBack(RandomStream(kNoiseSeed));
                    noise(d, type, level);
                },
                [=](const Pixels& p) {
                    RandomStream stream(kNoiseSeed);
                    return reference::noise(p, type, level, stream);
                });
        }
    }
    return all;
}

/// Where two pictures first differ, or an empty text.
std::string difference(const Pixels& actual, const Pixels& expected, const Pixels& source) {
    if (actual.size() != expected.size()) return "sizes differ";
    for (std::size_t i = 0; i < actual.size(); ++i) {
        if (actual[i] == expected[i]) continue;
        char text[128];
        std::snprintf(text, sizeof text, "pixel %zu: %08X became %08X, not %08X", i, source[i], actual[i],
                      expected[i]);
        return text;
    }
    return {};
}

void checkOperation(const Operation& operation, const Pixels& source, int width, int height) {
    const Pixels expected = operation.expected(source);
    onEveryTarget([&] {
        ImageDocument document;
        loadPicture(document, source, width, height);
        operation.run(document);
        EXPECT_EQ(difference(pictureOf(document), expected, source), "")
            << operation.name << ", " << width << " x " << height;
        EXPECT_TRUE(document.undoEnabled()) << operation.name;
    });
}

TEST(PointOperations, EqualTheirDefinitionsAtEverySize) {
    const std::vector<Operation> operations = allOperations();
    for (int width = 2; width <= 67; ++width) {
        const int height = 2 + width * 23 % 66;
        const Pixels source = randomPicture(std::size_t(width * height), unsigned(width));
        // Every operation meets every remainder of the vector length; not every parameter every width.
        for (std::size_t i = 0; i < operations.size(); ++i) {
            if (width <= 17 || (i + std::size_t(width)) % 5 == 0) {
                checkOperation(operations[i], source, width, height);
            }
        }
    }
}

TEST(PointOperations, EqualTheirDefinitionsOnAPictureBeyondTheCaches) {
    const int width = 2049, height = 2053;
    const Pixels source = randomPicture(std::size_t(width * height), 99u);
    for (const Operation& operation : allOperations()) {
        for (const char* name :
             {"invert", "desaturate", "autocolor", "sepia", "saturate 150", "brightness 10 -20 30",
              "monochrome 127", "noise 0 31", "noise 1 31", "noise 1 256"}) {
            if (operation.name != name) continue;
            if (kFastBuild || operation.name == "invert" || operation.name == "sepia") {
                checkOperation(operation, source, width, height);
            }
        }
    }
}

TEST(PointOperations, LumaIsExactForAllColours) {
    // Slow builds take every 61st colour; 61 divides no power of two, so all bytes still meet.
    const std::size_t step = kFastBuild ? 1 : 61, chunk = 1 << 16;
    Pixels source(chunk), target(chunk);
    const auto expectExact = [&] {
        const Pixels expected = reference::desaturate(source);
        onEveryTarget([&] {
            desaturatePixels(source.data(), target.data(), chunk);
            ASSERT_EQ(difference(target, expected, source), "");
        });
    };
    for (std::size_t first = 0; first < std::size_t{1} << 24; first += chunk * step) {
        for (std::size_t i = 0; i < chunk; ++i) source[i] = Argb((first + i * step) & 0xFFFFFFu);
        expectExact();
    }
    // Greys take a road of their own where many of them follow one another.
    for (std::size_t i = 0; i < chunk; ++i) source[i] = Argb(i * 7 % 256) * 0x010101u | Argb(i << 24);
    expectExact();
}

TEST(PointOperations, EveryPercentageIsExact) {
    // Each pair of a channel value and, nearly, a luma; hundredths that round badly are a few among hundreds.
    Pixels source = randomPicture(1 << 16, 4u);
    for (std::size_t i = 0; i < source.size(); ++i) {
        source[i] = (source[i] & 0xFFu) | Argb(i & 255u) << 8 | Argb(i >> 8) << 16;
    }
    const auto expectSame = [&](int percent, auto run, const Pixels& expected) {
        ImageDocument document;
        loadPicture(document, source, 256, 256);
        run(document);
        EXPECT_EQ(difference(pictureOf(document), expected, source), "") << percent << " %";
    };
    for (int percent = -3; percent <= 520; percent += kFastBuild ? 1 : 29) {
        expectSame(
            percent, [=](ImageDocument& d) { saturate(d, percent); }, reference::saturate(source, percent));
        expectSame(
            percent, [=](ImageDocument& d) { contrast(d, percent); }, reference::contrast(source, percent));
        if (percent < 0) continue;
        expectSame(
            percent, [=](ImageDocument& d) { lightness(d, percent, percent + 1, percent + 2); },
            reference::lightness(source, percent, percent + 1, percent + 2));
    }
}

TEST(PointOperations, KernelsStayWithinTheirPixels) {
    constexpr Argb kGuard = 0x5AC35AC3u;
    constexpr std::size_t kMargin = 20;
    const ChannelTables tables{makeByteTable([](int c) { return c / 2; }),
                               makeByteTable([](int c) { return c; }),
                               makeByteTable([](int c) { return 255 - c; })};
    const std::function<void(const Argb*, Argb*, std::size_t)> kernels[] = {
        [](const Argb* s, Argb* t, std::size_t n) { addToChannels(s, t, n, 1, 2, 3); },
        [](const Argb* s, Argb* t, std::size_t n) { saturatePixels(s, t, n, 150); },
        [&](const Argb* s, Argb* t, std::size_t n) { mapChannels(s, t, n, tables); },
        [](const Argb* s, Argb* t, std::size_t n) {
            RandomStream stream;
            addNoise(s, t, n, NoiseKind::Colour, 20, stream);
        },
    };
    onEveryTarget([&] {
        for (std::size_t count = 0; count <= 150; ++count) {
            // Exactly as large as it may be read, so that the address sanitizer sees a read beyond it.
            const Pixels source = randomPicture(count, unsigned(count));
            for (std::size_t shift : {0u, 1u, 7u, 15u}) {
                for (const auto& kernel : kernels) {
                    Pixels target(count + 2 * kMargin, kGuard);
                    kernel(source.data(), target.data() + kMargin - shift, count);
                    for (std::size_t i = 0; i < target.size(); ++i) {
                        const bool inside = i >= kMargin - shift && i < kMargin - shift + count;
                        ASSERT_EQ(inside ? alphaOf(target[i]) : target[i], inside ? 255u : kGuard) << i;
                    }
                }
            }
        }
    });
}

TEST(PointOperations, NoiseLeavesTheStreamWhereTheLastDrawDoes) {
    const Pixels source = randomPicture(777, 5u);
    Pixels target(source.size());
    onEveryTarget([&] {
        for (NoiseKind kind : {NoiseKind::Grey, NoiseKind::Colour}) {
            for (int level : {20, -255, 256}) {
                RandomStream drawn(kNoiseSeed), walked(kNoiseSeed);
                addNoise(source.data(), target.data(), source.size(), kind, level, drawn);
                walked.skip(source.size() * (kind == NoiseKind::Grey ? 2 : 6));
                EXPECT_EQ(drawn.state(), walked.state()) << level;
            }
        }
    });
}

TEST(PointOperations, ChannelRangeOfNothingIsEmpty) {
    onEveryTarget([] {
        const ChannelRange range = channelRange(nullptr, 0);
        EXPECT_EQ(range.minimum, 0xFFFFFFFFu);
        EXPECT_EQ(range.maximum, 0xFF000000u);
    });
}

TEST(PointOperations, KnownResults) {
    const auto pixelAfter = [](Argb before, auto run) {
        ImageDocument document;
        loadPicture(document, {before, before, before, 0x00FFFFFFu, 0x00000000u, before}, 3, 2);
        run(document);
        return pictureOf(document)[0];
    };
    const struct {
        const char* name;
        void (*run)(ImageDocument&);
        Argb before, after;
    } rows[] = {
        {"contrast 0", [](ImageDocument& d) { contrast(d, 0); }, 0x12345678u, 0xFF7F7F7Fu},
        {"contrast 100", [](ImageDocument& d) { contrast(d, 100); }, 0x12345678u, 0xFF345678u},
        {"saturate 100", [](ImageDocument& d) { saturate(d, 100); }, 0x00345678u, 0xFF345678u},
        {"saturate 0", [](ImageDocument& d) { saturate(d, 0); }, 0x80FF0000u, 0xFF363636u},
        {"lightness 100", [](ImageDocument& d) { lightness(d, 100, 100, 100); }, 0x00345678u, 0xFF345678u},
        {"temperature -100", [](ImageDocument& d) { temperature(d, -100); }, 0x00345678u, 0xFF0056F0u},
        {"temperature 100", [](ImageDocument& d) { temperature(d, 100); }, 0x00345678u, 0xFF685600u},
        {"hue 0 0 0", [](ImageDocument& d) { hue(d, 0, 0, 0); }, 0x00FFFFFFu, 0xFFFEFEFEu},
        {"hue at its own grey", [](ImageDocument& d) { hue(d, 10, 20, 30); }, 0x00141414u, 0xFF0A141Eu},
        {"monochrome at the level", [](ImageDocument& d) { monochrome(d, 127, 0xFFFFFFFFu, 0xFF000000u); },
         0x007F7F7Fu, 0xFF000000u},
        {"monochrome above it", [](ImageDocument& d) { monochrome(d, 127, 0xFFFFFFFFu, 0xFF000000u); },
         0x00808080u, 0xFFFFFFFFu},
        {"luma that rounds down", desaturate, 0x002B2B2Bu, 0xFF2A2A2Au},
        {"autocolor of the whole range", autocolor, 0x00FF00FFu, 0xFFFA05FAu},
        {"gamma at full intensity", [](ImageDocument& d) { gamma(d, 7.5); }, 0x00FF00FFu, 0xFFFF00FFu},
        {"gamma of infinity", [](ImageDocument& d) { gamma(d, std::numeric_limits<double>::infinity()); },
         0x00FE80FEu, 0xFF000000u},
        {"noise 0", [](ImageDocument& d) { noise(d, 1, 0); }, 0x00345678u, 0xFF345678u},
    };
    for (const auto& row : rows) EXPECT_EQ(pixelAfter(row.before, row.run), row.after) << row.name;
}

TEST(PointOperations, RefusedParametersChangeNothing) {
    const struct {
        const char* name;
        void (*run)(ImageDocument&);
        bool accepted;
    } rows[] = {
        {"temperature -101", [](ImageDocument& d) { temperature(d, -101); }, false},
        {"temperature 101", [](ImageDocument& d) { temperature(d, 101); }, false},
        {"temperature INT_MIN", [](ImageDocument& d) { temperature(d, INT_MIN); }, false},
        {"lightness -1 0 0", [](ImageDocument& d) { lightness(d, -1, 0, 0); }, false},
        {"lightness 0 -1 0", [](ImageDocument& d) { lightness(d, 0, -1, 0); }, false},
        {"lightness 0 0 -1", [](ImageDocument& d) { lightness(d, 0, 0, -1); }, false},
        {"lightness 0 0 0", [](ImageDocument& d) { lightness(d, 0, 0, 0); }, true},
        {"hue 256 0 0", [](ImageDocument& d) { hue(d, 256, 0, 0); }, false},
        {"hue 0 -1 0", [](ImageDocument& d) { hue(d, 0, -1, 0); }, false},
        {"hue 0 0 256", [](ImageDocument& d) { hue(d, 0, 0, 256); }, false},
        {"hue 0 255 0", [](ImageDocument& d) { hue(d, 0, 255, 0); }, true},
        {"gamma 0.0199", [](ImageDocument& d) { gamma(d, 0.0199); }, false},
        {"gamma 0.02", [](ImageDocument& d) { gamma(d, 0.02); }, true},
        {"gamma -1", [](ImageDocument& d) { gamma(d, -1.0); }, false},
        {"gamma nan", [](ImageDocument& d) { gamma(d, std::nan("")); }, false},
    };
    const Pixels source = randomPicture(15, 3u);
    for (const auto& row : rows) {
        ImageDocument document;
        loadPicture(document, source, 5, 3);
        row.run(document);
        EXPECT_EQ(document.undoEnabled(), row.accepted) << row.name;
        EXPECT_EQ(document.modified, row.accepted) << row.name;
        EXPECT_EQ(pictureOf(document) == source, !row.accepted) << row.name;
    }
}

TEST(PointOperations, LeaveAnEmptyDocumentEmpty) {
    SharedRandomStream::giveBack(RandomStream(kNoiseSeed));
    for (const Operation& operation : allOperations()) {
        ImageDocument document;
        operation.run(document);
        EXPECT_TRUE(document.isEmpty() && !document.undoEnabled() && !document.modified) << operation.name;
        EXPECT_EQ(SharedRandomStream::take().state(), kNoiseSeed) << operation.name;
    }
}

TEST(PointOperations, AreOneHistoryStepEach) {
    const Pixels source = randomPicture(64, 8u);
    ImageDocument document;
    loadPicture(document, source, 8, 8);
    invert(document);
    invert(document);
    EXPECT_EQ(pictureOf(document), reference::brightness(source, 0, 0, 0));  // opaque, else as before
    document.undo();
    EXPECT_EQ(pictureOf(document), reference::invert(source));
    document.undo();
    EXPECT_EQ(pictureOf(document), source);
    EXPECT_FALSE(document.undoEnabled());
}

}  // namespace
}  // namespace orvane
