#include "filters/histograms.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "filters/autocontrast.h"
#include "filters/autolevels.h"
#include "filters/point_reference.h"
#include "support/every_target.h"
#include "support/pictures.h"
#include "support/test_control.h"

namespace orvane {
namespace {

using reference::Pixels;
using test::onEveryTarget;

// The corrections by their definitions, step by step.

struct Histograms {
    std::uint32_t red[256] = {}, green[256] = {}, blue[256] = {}, luma[256] = {};
};

Histograms histogramsOf(const Pixels& pixels) {
    Histograms h;
    for (Argb p : pixels) {
        ++h.red[redOf(p)];
        ++h.green[greenOf(p)];
        ++h.blue[blueOf(p)];
        ++h.luma[reference::luma(int(redOf(p)), int(greenOf(p)), int(blueOf(p)))];
    }
    return h;
}

/// Rounded to the nearest whole number, halves up; for counts.
std::int64_t mulDiv(std::int64_t a, std::int64_t b, std::int64_t c) { return (2 * a * b + c) / (2 * c); }

Argb mapped(Argb p, const int (&red)[256], const int (&green)[256], const int (&blue)[256]) {
    return makeOpaque(unsigned(red[redOf(p)]), unsigned(green[greenOf(p)]), unsigned(blue[blueOf(p)]));
}

void autolevelsTable(const std::uint32_t (&counts)[256], std::int64_t threshold, int (&table)[256]) {
    int lower = 0, upper = 0;
    std::int64_t sum = 0;
    for (int i = 0; i <= 255; ++i) {
        if (lower == 0 && sum >= threshold) lower = i;
        sum += counts[i];
    }
    sum = 0;
    for (int i = 255; i >= 0; --i) {
        if (upper == 0 && sum >= threshold) upper = i;
        sum += counts[i];
    }
    const int lo = std::min(lower, 254), hi = std::max(upper, lo + 1), range = hi - lo;
    for (int i = 0; i < 256; ++i) {
        table[i] = std::clamp(static_cast<int>((i - lo) * (1.0 / range) * 255.0), 0, 255);
    }
}

Pixels autolevelsOf(Pixels pixels) {
    const Histograms h = histogramsOf(pixels);
    const std::int64_t threshold = mulDiv(std::int64_t(pixels.size()) / 3, 5, 100);
    int red[256], green[256], blue[256];
    autolevelsTable(h.red, threshold, red);
    autolevelsTable(h.green, threshold, green);
    autolevelsTable(h.blue, threshold, blue);
    for (Argb& p : pixels) p = mapped(p, red, green, blue);
    return pixels;
}

Pixels autocontrastOf(Pixels pixels) {
    const Histograms h = histogramsOf(pixels);
    std::int64_t joint[256];
    for (int i = 0; i < 256; ++i) joint[i] = std::int64_t(h.red[i]) + h.green[i] + h.blue[i];
    const std::int64_t threshold = mulDiv(std::int64_t(pixels.size()) * 4, 5, 100);
    int lower = 0, upper = 0;
    std::int64_t sum = 0;
    for (int i = 0; i < 256; sum += joint[i++]) {
        if (sum < threshold) continue;
        lower = i;
        break;
    }
    sum = 0;
    for (int i = 255; i >= 0; sum += joint[i--]) {
        if (sum < threshold) continue;
        upper = i;
        break;
    }
    const int lo = std::min(lower, 254), hi = std::max(upper, lo + 1), range = hi - lo;
    int table[256];
    for (int i = 0; i < 256; ++i) {
        table[i] = std::clamp(static_cast<int>((i - lo) * 255.0 / range), 0, 255);
    }
    for (Argb& p : pixels) p = mapped(p, table, table, table);
    return pixels;
}

/// Pictures with bounds in different places: every level, few levels, one level, only the ends.
std::vector<Pixels> pictures(std::size_t count) {
    std::vector<Pixels> all{test::randomPicture(count, 1u), test::randomPicture(count, 2u),
                            Pixels(count, 0x40808080u), Pixels(count, 0xFFFFFFFFu), Pixels(count, 0u)};
    for (Argb& p : all[1]) p = (p & 0xFF1F0F31u) + 0x00300060u;
    Pixels ends(count, 0xFF000000u);
    for (std::size_t i = 0; i < count / 2; ++i) ends[i] = 0x00FFFFFFu;
    all.push_back(ends);
    return all;
}

constexpr int kSizes[][2] = {{2, 2}, {3, 5}, {4, 4}, {7, 11}, {31, 2}, {33, 9}, {100, 100}, {301, 211}};

TEST(Histograms, CountEveryPixelOfEachChannelAndOfTheLuma) {
    for (const auto& [width, height] : kSizes) {
        for (const Pixels& pixels : pictures(std::size_t(width * height))) {
            const Histograms expected = histogramsOf(pixels);
            onEveryTarget([&, w = width, h = height] {
                ImageDocument document;
                test::loadPicture(document, pixels, w, h);
                const auto equal = [](const auto& counts, const std::uint32_t(&levels)[256]) {
                    return counts && std::equal(counts->begin(), counts->end(), levels);
                };
                EXPECT_TRUE(equal(redHistogram(document), expected.red));
                EXPECT_TRUE(equal(greenHistogram(document), expected.green));
                EXPECT_TRUE(equal(blueHistogram(document), expected.blue));
                EXPECT_TRUE(equal(lumaHistogram(document), expected.luma));
                EXPECT_FALSE(document.modified || document.undoEnabled());
            });
        }
    }
}

TEST(Histograms, CorrectionsEqualTheirDefinitions) {
    for (const auto& [width, height] : kSizes) {
        for (const Pixels& pixels : pictures(std::size_t(width * height))) {
            ImageDocument levels, contrast;
            test::loadPicture(levels, pixels, width, height);
            test::loadPicture(contrast, pixels, width, height);
            autolevels(levels);
            autocontrast(contrast);
            EXPECT_EQ(test::pictureOf(levels), autolevelsOf(pixels)) << width << " x " << height;
            EXPECT_EQ(test::pictureOf(contrast), autocontrastOf(pixels)) << width << " x " << height;
            EXPECT_TRUE(levels.undoEnabled() && contrast.undoEnabled());
        }
    }
}

/// What becomes of the first pixel of a square picture whose other pixels are half `low`, half `high`.
TEST(Histograms, KnownCorrections) {
    const auto corrected = [](int side, Argb low, Argb high, Argb probe, void (*correct)(ImageDocument&)) {
        Pixels pixels(std::size_t(side * side), low);
        std::fill(pixels.begin() + side * side / 2, pixels.end(), high);
        pixels[0] = probe;
        ImageDocument document;
        test::loadPicture(document, pixels, side, side);
        correct(document);
        return test::pictureOf(document)[0];
    };
    const struct {
        const char* name;
        int side;
        Argb low, high, probe;
        void (*correct)(ImageDocument&);
        Argb after;
    } rows[] = {
        {"flat grey", 100, 0xFF808080u, 0xFF808080u, 0xFF808080u, autolevels, 0xFF000000u},
        {"flat grey", 100, 0xFF808080u, 0xFF808080u, 0xFF808080u, autocontrast, 0xFF000000u},
        {"too small for a share", 4, 0u, 0u, 0xFF0100FFu, autolevels, 0xFF0000FFu},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(corrected(row.side, row.low, row.high, row.probe, row.correct), row.after) << row.name;
    }
}

TEST(Histograms, AnEmptyDocumentHasNoneAndStaysEmpty) {
    TestControl control;
    for (const char* name : {"GetRHistogram", "GetGHistogram", "GetBHistogram", "GetLHistogram"}) {
        EXPECT_TRUE(control.call(name).isNone()) << name;
    }
    control.redraws();
    for (const char* name : {"Autolevels", "Autocontrast"}) {
        control.call(name);
        EXPECT_EQ(control.redraws(), 1) << name;
        EXPECT_FALSE(control.flag("UndoEnable") || control.flag("Modified")) << name;
    }
}

TEST(Histograms, MembersGiveAllCounts) {
    TestControl control;
    control.call("NewImage", {20, 30});
    for (const char* name : {"GetRHistogram", "GetGHistogram", "GetBHistogram", "GetLHistogram"}) {
        const Value counts = control.call(name);
        ASSERT_EQ(counts.longs().size(), 256u) << name;
        EXPECT_EQ(counts.longs()[255], 600) << name;  // a new image is white
    }
}

}  // namespace
}  // namespace orvane
