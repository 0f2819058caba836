#include "geometry/free_rotation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "document/image_document.h"
#include "platform/graphics/source_over.h"
#include "support/failing_allocator.h"
#include "support/pictures.h"

namespace orvane {
namespace {

using test::loadPicture;
using test::pictureOf;
using test::randomPicture;

std::vector<Argb> opaquePicture(int width, int height, unsigned seed) {
    auto pixels = randomPicture(std::size_t(width) * std::size_t(height), seed);
    for (Argb& p : pixels) p |= 0xFF000000u;
    return pixels;
}

TEST(FillFactor, GrowsWithTheAngleAndDiffersFromSideToSide) {
    const struct {
        IntSize frame;
        float angle;
        double factor;
    } rows[] = {
        {{400, 300}, 0.0f, 1.0},
        {{500, 500}, 45.0f, std::sqrt(2.0)},
        {{500, 500}, -45.0f, 2.0},
        {{400, 300}, 30.0f, std::cos(M_PI / 6) + 4.0 / 3 * 0.5},
        {{400, 300}, -30.0f, 2 - std::cos(M_PI / 6) + 4.0 / 3 * 0.5},
        {{300, 400}, 30.0f, std::cos(M_PI / 6) + 4.0 / 3 * 0.5},
        {{1, 1}, 0.0f, 1.0},
        {{7, 1}, 0.0f, 1.0},
    };
    for (const auto& row : rows) {
        EXPECT_NEAR(double(fillFactor(row.frame, row.angle)), row.factor, 1e-6)
            << row.frame.width << "x" << row.frame.height << " by " << row.angle;
    }
}

TEST(FreeRotation, TurnsClockwiseAboutWholePixelsAndGrowsAboutTheExactCentre) {
    const IntSize frame{401, 301};
    const float angle = 30.0f;
    const double k = double(fillFactor(frame, angle)), sine = 0.5, cosine = std::sqrt(0.75);
    const AffineMap map = freeRotation(frame, angle);
    for (const PlanePoint p : {PlanePoint{0, 0}, PlanePoint{401, 0}, PlanePoint{12.5, 290}}) {
        const double x = cosine * (p.x - 200) - sine * (p.y - 150) + 200;
        const double y = sine * (p.x - 200) + cosine * (p.y - 150) + 150;
        EXPECT_NEAR(map(p).x, k * (x - 200.5) + 200.5, 1e-4);
        EXPECT_NEAR(map(p).y, k * (y - 150.5) + 150.5, 1e-4);
    }
}

/// Every pixel of the frame comes from the picture, but for the half pixel by which the centre of a frame
/// with an odd side is off.
TEST(FreeRotation, LeavesNoCornerEmpty) {
    for (const IntSize frame : {IntSize{400, 300}, {300, 400}, {401, 301}, {64, 1000}, {33, 33}, {5, 4}}) {
        const bool isOdd = frame.width % 2 != 0 || frame.height % 2 != 0;
        const double slack = isOdd ? 0.8 : 1e-3;
        for (int angle = -45; angle <= 45; ++angle) {
            const AffineMap map = turnedToPicture(frame, float(angle), frame);
            for (const PlanePoint corner :
                 {PlanePoint{0, 0}, PlanePoint{double(frame.width), 0}, PlanePoint{0, double(frame.height)},
                  PlanePoint{double(frame.width), double(frame.height)}}) {
                const PlanePoint p = map(corner);
                EXPECT_TRUE(p.x >= -slack && p.x <= frame.width + slack && p.y >= -slack &&
                            p.y <= frame.height + slack)
                    << frame.width << "x" << frame.height << " by " << angle << ": " << p.x << ", " << p.y;
            }
        }
    }
}

TEST(ApplyRotation, IsOneStepAlsoAtAngleZero) {
    const auto pixels = opaquePicture(70, 50, 3u);
    for (float angle : {0.0f, 7.0f, -45.0f}) {
        ImageDocument document;
        loadPicture(document, pixels, 70, 50);
        document.modified = false;
        document.rotationAngle = angle;
        applyRotation(document);
        EXPECT_EQ(document.size(), (IntSize{70, 50}));
        EXPECT_EQ(pictureOf(document) == pixels, angle == 0.0f);
        EXPECT_TRUE(document.modified);
        EXPECT_TRUE(document.currentSurface()->isOpaque());
        document.undo();
        EXPECT_EQ(pictureOf(document), pixels);
        EXPECT_FALSE(document.undoEnabled());
    }
}

/// A white picture stays white up to its corners, whatever its size.
TEST(ApplyRotation, ShowsNoBackgroundAtAnyAngle) {
    for (const IntSize size : {IntSize{40, 30}, {41, 31}, {30, 40}, {2, 90}, {3, 3}}) {
        const std::vector<Argb> white(std::size_t(size.width) * std::size_t(size.height), 0xFFFFFFFFu);
        for (int angle = -45; angle <= 45; angle += 9) {
            ImageDocument document;
            loadPicture(document, white, size.width, size.height);
            document.rotationAngle = float(angle);
            applyRotation(document);
            EXPECT_EQ(pictureOf(document), white) << size.width << "x" << size.height << " by " << angle;
        }
    }
}

TEST(ApplyRotation, TurnsClockwise) {
    constexpr int kSide = 101;
    std::vector<Argb> pixels(kSide * kSide, 0xFF000000u);
    for (int x = 50; x < kSide; ++x) pixels[std::size_t(50 * kSide + x)] = 0xFFFFFFFFu;  // a ray to the right
    ImageDocument document;
    loadPicture(document, pixels, kSide, kSide);
    document.rotationAngle = 45.0f;
    applyRotation(document);
    const auto turned = pictureOf(document);
    EXPECT_GT(blueOf(turned[80 * kSide + 80]), 100u);
    EXPECT_EQ(turned[20 * kSide + 80], 0xFF000000u);
}

/// Half transparent over itself is three quarters opaque.
TEST(ApplyRotation, TransparentPicturesAreDrawnOverThemselves) {
    const auto pixels = randomPicture(60 * 40, 8u);
    ImageDocument document;
    loadPicture(document, pixels, 60, 40);
    document.rotationAngle = 0.0f;
    applyRotation(document);
    auto expected = pixels;
    sourceOver(pixels.data(), expected.data(), expected.data(), expected.size());
    EXPECT_EQ(pictureOf(document), expected);
}

TEST(ApplyRotation, NeedsAnImageAndMemory) {
    ImageDocument document;
    applyRotation(document);
    EXPECT_TRUE(document.isEmpty());
    EXPECT_FALSE(document.modified);

    const auto pixels = opaquePicture(40, 30, 4u);
    loadPicture(document, pixels, 40, 30);
    document.modified = false;
    FailingAllocator::arm(1, 100);
    applyRotation(document);
    EXPECT_TRUE(FailingAllocator::disarm());
    EXPECT_EQ(pictureOf(document), pixels);
    EXPECT_FALSE(document.modified);
}

}  // namespace
}  // namespace orvane
