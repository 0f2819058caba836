#include "view/rotation_preview.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "geometry/free_rotation.h"
#include "platform/graphics/fill.h"
#include "support/failing_allocator.h"
#include "support/pictures.h"
#include "view/draw_view.h"
#include "view/view_mapping.h"

namespace orvane {
namespace {

constexpr Argb kBackground = 0xFF00008Bu;

/// Broad waves and hard edges, opaque unless asked otherwise.
std::vector<Argb> scenery(int width, int height, bool opaque = true) {
    std::vector<Argb> pixels;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const auto wave = [&](double fx, double fy) {
                return unsigned(128 + 120 * std::sin(x * fx + y * fy));
            };
            const unsigned alpha = opaque ? 255 : wave(0.021, 0.017);
            const bool isEdge = (x / 40 + y / 30) % 3 == 0;
            pixels.push_back(
                makeArgb(alpha, wave(0.05, 0.03), isEdge ? 255 : wave(0.01, -0.04), wave(-0.02, 0.06)));
        }
    }
    return pixels;
}

struct Scene {
    ImageDocument document;
    ViewPainter painter;

    Scene(const std::vector<Argb>& pixels, IntSize picture, IntSize view) {
        document.view.setViewSize(view, {});
        test::loadPicture(document, pixels, picture.width, picture.height);
        document.rotationPreview = true;
    }
    std::vector<Argb> painted(float angle) { return paintedBy(painter, angle); }
    std::vector<Argb> paintedAnew(float angle) {
        ViewPainter fresh;
        return paintedBy(fresh, angle);
    }
    std::vector<Argb> paintedAfterCommit(float angle) {
        document.rotationAngle = angle;
        applyRotation(document);
        document.rotationPreview = false;
        auto pixels = painted(angle);
        document.undo();
        document.rotationPreview = true;
        return pixels;
    }

 private:
    std::vector<Argb> paintedBy(ViewPainter& by, float angle) {
        const IntSize view{document.view.viewWidth, document.view.viewHeight};
        document.rotationAngle = angle;
        std::vector<Argb> pixels(std::size_t(view.width) * std::size_t(view.height), 0x12345678u);
        by.paint(document, kBackground, {pixels.data(), view.width, view.height, view.width});
        return pixels;
    }
};

struct Difference {
    int largest = 0;
    double mean = 0;
};

Difference differenceOf(const std::vector<Argb>& a, const std::vector<Argb>& b) {
    Difference difference;
    for (std::size_t i = 0; i < a.size(); ++i) {
        for (int shift = 0; shift < 32; shift += 8) {
            const int off = std::abs(int((a[i] >> shift) & 255u) - int((b[i] >> shift) & 255u));
            difference.largest = std::max(difference.largest, off);
            difference.mean += off;
        }
    }
    difference.mean /= double(a.size()) * 4;
    return difference;
}

TEST(RotationPreview, AtActualSizeIsWhatTheCommitWillShow) {
    for (const IntSize picture : {IntSize{200, 150}, {201, 151}, {150, 201}, {900, 700}}) {
        Scene scene(scenery(picture.width, picture.height), picture, {400, 300});
        setZoom(scene.document, 1.0);
        for (float angle : {-45.0f, -7.0f, 1.0f, 30.0f, 45.0f}) {
            const auto preview = scene.painted(angle), after = scene.paintedAfterCommit(angle);
            EXPECT_LE(differenceOf(preview, after).largest, 1)
                << picture.width << "x" << picture.height << " by " << angle;
        }
    }
}

TEST(RotationPreview, AtAngleZeroIsThePlainView) {
    for (double zoom : {0.3, 1.0, 1.7}) {
        Scene scene(scenery(500, 400, false), {500, 400}, {300, 200});
        setZoom(scene.document, zoom);
        const auto preview = scene.painted(0.0f);
        scene.document.rotationPreview = false;
        EXPECT_EQ(preview, scene.painted(0.0f)) << zoom;
    }
}

/// Neither blurred nor jagged: close to what is seen when the committed picture is shown at this zoom.
TEST(RotationPreview, OfALargePictureIsAsSmoothAsThePlainView) {
    Scene scene(scenery(1600, 1200), {1600, 1200}, {400, 300});
    for (double zoom : {0.1, 0.24, 0.5, 0.8}) {
        setZoom(scene.document, zoom);
        for (float angle : {-45.0f, -7.0f, 3.0f, 30.0f, 45.0f}) {
            const Difference off = differenceOf(scene.painted(angle), scene.paintedAfterCommit(angle));
            EXPECT_LT(off.mean, 2.0) << "zoom " << zoom << ", angle " << angle;
        }
    }
}

TEST(RotationPreview, ShowsFineGrainAsAnEvenTone) {
    std::vector<Argb> grain(1200 * 900);
    for (std::size_t i = 0; i < grain.size(); ++i) {
        grain[i] = (i % 1200 + i / 1200) % 2 == 0 ? 0xFFFFFFFFu : 0xFF000000u;
    }
    Scene scene(grain, {1200, 900}, {340, 260});
    zoomToFit(scene.document);
    for (float angle : {-45.0f, -1.0f, 2.0f, 7.0f, 45.0f}) {
        const auto pixels = scene.painted(angle);
        for (int y = 60; y < 200; ++y) {
            for (int x = 60; x < 280; ++x) {
                const int level = int(greenOf(pixels[std::size_t(y * 340 + x)]));
                ASSERT_NEAR(level, 127, 60) << angle << " at " << x << "," << y;
            }
        }
    }
}

TEST(RotationPreview, StaysInsideTheShownRectangleAndFillsIt) {
    const std::vector<Argb> white(1001 * 601, 0xFFFFFFFFu);
    Scene scene(white, {1001, 601}, {400, 300});
    scene.document.frameColor = 0x00FFFFFFu;
    for (double zoom : {0.1, 0.333, 0.39, 1.0, 2.2}) {
        setZoom(scene.document, zoom);
        const IntRect shown = clippedTo({400, 300}, scene.document.imageRect());
        for (int angle = -45; angle <= 45; angle += 5) {
            const auto pixels = scene.painted(float(angle));
            int wrong = 0;
            for (int y = 0; y < 300; ++y) {
                for (int x = 0; x < 400; ++x) {
                    const Argb expected = shown.contains({x, y}) ? 0xFFFFFFFFu : kBackground;
                    wrong += pixels[std::size_t(y * 400 + x)] != expected;
                }
            }
            EXPECT_EQ(wrong, 0) << "zoom " << zoom << ", angle " << angle;
        }
    }
}

TEST(RotationPreview, WhatIsKeptBetweenPaintsNeverShows) {
    std::mt19937 random(5);
    for (bool opaque : {true, false}) {
        Scene scene(scenery(900, 600, opaque), {900, 600}, {220, 180});
        for (int step = 0; step < 150; ++step) {
            switch (random() % 8) {
                case 0:
                    setZoom(scene.document, 0.1 + double(random() % 12) / 10);
                    break;
                case 1:
                    zoomToFit(scene.document);
                    break;
                case 2:
                    scene.document.view.viewCentreX = int(random() % 400) - 100;
                    break;
                case 3:
                    *scene.document.lockCurrent().pixels ^= 0x00FF00FFu;
                    break;
                default:
                    break;
            }
            const auto angle = float(int(random() % 91) - 45);
            const Difference off = differenceOf(scene.painted(angle), scene.paintedAnew(angle));
            ASSERT_LE(off.largest, 1) << "step " << step << ", angle " << angle;
        }
    }
}

TEST(RotationPreview, IsDrawnWithoutMemoryForACopy) {
    Scene scene(scenery(1000, 800), {1000, 800}, {300, 200});
    zoomToFit(scene.document);
    const auto expected = scene.paintedAnew(20.0f);
    std::vector<Argb> pixels(expected.size());
    FailingAllocator::arm(1, 100);
    scene.painter.paint(scene.document, kBackground, {pixels.data(), 300, 200, 300});
    EXPECT_TRUE(FailingAllocator::disarm());
    EXPECT_LT(differenceOf(pixels, expected).mean, 8.0);
}

}  // namespace
}  // namespace orvane
