#include "view/draw_view.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "platform/graphics/fill.h"
#include "platform/graphics/source_over.h"
#include "platform/graphics/stretch.h"
#include "support/failing_allocator.h"
#include "view/image_frame.h"
#include "view/view_mapping.h"

namespace orvane {
namespace {

struct Raster {
    int width, height;
    std::vector<Argb> pixels;

    Raster(int w, int h, Argb colour = 0x5A5A5A5Au)
        : width(w), height(h), pixels(std::size_t(w) * std::size_t(h), colour) {}
    MutablePixelView view() { return {pixels.data(), width, height, width}; }
};

void loadRandomPicture(ImageDocument& document, int width, int height, bool opaque, std::mt19937& random) {
    std::vector<std::uint8_t> bytes(std::size_t(width) * std::size_t(height) * 4);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = opaque && i % 4 == 3 ? std::uint8_t{255} : std::uint8_t(random());
    }
    ASSERT_TRUE(document.loadPixels(bytes, width, height));
}

// What the layers come to when they are drawn one after the other, with nothing kept from earlier.
std::vector<Argb> layersOf(const ImageDocument& document, Argb background, IntSize view) {
    Raster target(view.width, view.height, background);
    if (!document.isEmpty() && view.width >= 16 && view.height >= 16) {
        const IntRect placement = document.imageRect();
        drawStretched({document.currentPixels(), false}, placement, target.view(), StretchMode::Over);
        drawImageFrame(target.view(), placement, view, document.frameColor);
    }
    return target.pixels;
}

TEST(DrawView, WhatIsKeptBetweenPaintsNeverShows) {
    std::mt19937 random(17);
    for (int session = 0; session < 12; ++session) {
        const bool opaque = session % 2 == 0;
        ImageDocument document;
        ViewPainter painter;
        IntSize view{120, 90};
        Argb background = 0xFF00008Bu;
        document.view.setViewSize(view, {});
        loadRandomPicture(document, 40 + session * 9, 33 + session * 5, opaque, random);
        for (int step = 0; step < 120; ++step) {
            const IntPoint from{int(random() % 120), int(random() % 90)};
            const int action = int(random() % 12);
            switch (action) {
                case 0:
                    zoomIn(document);
                    break;
                case 1:
                    zoomOut(document);
                    break;
                case 2:
                    setZoom(document, 1.0);
                    break;
                case 3:
                    zoomToFit(document);
                    break;
                case 4:
                    *document.lockCurrent().pixels ^= 0x00FF00FFu;
                    break;
                case 5:
                    document.pushSnapshot();
                    break;
                case 6:
                    document.undo();
                    break;
                case 7:
                    background = 0xFF000000u | Argb(random());
                    break;
                case 8:
                    if (random() % 4 != 0) break;
                    view = {15 + int(random() % 140), 15 + int(random() % 100)};
                    document.view.setViewSize(view, document.size());
                    break;
                case 9:
                    scrollTo(document, from);
                    break;
                default:
                    beginPan(document, from);
                    panTo(document, {from.x + int(random() % 31) - 15, from.y + int(random() % 31) - 15});
                    endPan(document);
            }
            Raster target(view.width, view.height);
            painter.paint(document, background, target.view());
            // A picture without transparency takes quicker roads that may round the other way.
            const std::vector<Argb> expected = layersOf(document, background, view);
            for (std::size_t i = 0; i < expected.size(); ++i) {
                const auto off = [&](int shift) {
                    return std::abs(int((target.pixels[i] >> shift) & 255u) -
                                    int((expected[i] >> shift) & 255u));
                };
                ASSERT_LE(std::max({off(0), off(8), off(16)}), opaque ? 1 : 0)
                    << "session " << session << ", step " << step << ", action " << action << ", zoom "
                    << document.view.zoom << ", pixel " << i;
                ASSERT_EQ(alphaOf(target.pixels[i]), 255u);
            }
            ViewPainter fresh;
            Raster again(view.width, view.height);
            fresh.paint(document, background, again.view());
            ASSERT_EQ(target.pixels, again.pixels) << "session " << session << ", step " << step;
        }
    }
}

TEST(DrawView, ShowsNoImageInSmallViewsOrWithoutOne) {
    std::mt19937 random(1);
    ImageDocument document;
    ViewPainter painter;
    for (bool loaded : {false, true}) {
        for (IntSize view : {IntSize{15, 40}, {40, 15}, {16, 16}}) {
            document.view.setViewSize(view, document.size());
            if (loaded) loadRandomPicture(document, 4, 4, true, random);
            Raster target(view.width, view.height);
            painter.paint(document, 0xFF112233u, target.view());
            const auto plain = std::count(target.pixels.begin(), target.pixels.end(), 0xFF112233u);
            const bool showsNothing = plain == view.width * view.height;
            EXPECT_EQ(showsNothing, !loaded || view.width < 16 || view.height < 16)
                << view.width << "x" << view.height;
        }
    }
}

TEST(DrawView, WithoutMemoryToKeepPixelsThePictureIsStillDrawn) {
    std::mt19937 random(3);
    ImageDocument document;
    document.view.setViewSize({60, 50}, {});
    loadRandomPicture(document, 20, 10, false, random);
    document.view.zoom = 1.7;
    Raster target(60, 50);
    ViewPainter painter;
    FailingAllocator::arm(1, 1000);
    painter.paint(document, 0xFF102030u, target.view());
    EXPECT_TRUE(FailingAllocator::disarm());
    EXPECT_EQ(target.pixels, layersOf(document, 0xFF102030u, {60, 50}));
}

TEST(ImageFrame, CoversItsPathFullyAndItsNeighboursByHalf) {
    // White on black shows the coverage: F full, h half, q and t a quarter and three quarters at the corners.
    const char* const rows[] = {
        ".............",  //
        ".............",  //
        "..qhhhhhhhhq.",  //
        "..hFFFFFFFFh.",  //
        "..hFthhhhtFh.",  //
        "..hFhiii.hFh.",  //
        "..hFhiii.hFh.",  // i: where the image is
        "..hFhiii.hFh.",  //
        "..hFh....hFh.",  //
        "..hFthhhhtFh.",  //
        "..hFFFFFFFFh.",  //
        "..qhhhhhhhhq.",  //
        ".............",  //
    };
    Raster target(13, 13, 0xFF000000u);
    drawImageFrame(target.view(), {5, 5, 3, 3}, {13, 13}, 0xFFFFFFFFu);
    for (int y = 0; y < 13; ++y) {
        for (int x = 0; x < 13; ++x) {
            const char mark = rows[y][x];
            const unsigned level = mark == 'F'   ? 255
                                   : mark == 't' ? 191
                                   : mark == 'h' ? 128
                                   : mark == 'q' ? 64
                                                 : 0;
            EXPECT_EQ(target.view().at(x, y), makeOpaque(level, level, level)) << x << "," << y;
        }
    }
}

TEST(ImageFrame, NeedsTwoPixelsOnEverySide) {
    const struct {
        IntRect image;
        bool drawn;
    } rows[] = {
        {{2, 2, 16, 16}, true},
        {{1, 2, 16, 16}, false},
        {{2, 1, 16, 16}, false},
        {{2, 2, 17, 16}, false},
        {{2, 2, 16, 17}, false},
        {{5, 5, 3, 3}, true},
        {{-1000000000, 5, 2000000000, 3}, false},
    };
    for (const auto& row : rows) {
        Raster target(20, 20, 0xFF000000u);
        drawImageFrame(target.view(), row.image, {20, 20}, 0xFFFFFFFFu);
        const bool drawn = target.pixels != Raster(20, 20, 0xFF000000u).pixels;
        EXPECT_EQ(drawn, row.drawn) << row.image.x << "," << row.image.y << " " << row.image.width;
    }
}

}  // namespace
}  // namespace orvane
