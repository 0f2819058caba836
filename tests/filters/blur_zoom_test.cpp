#include "filters/blur_zoom.h"

#include <gtest/gtest.h>

#include <climits>

#include "base/digital_ray.h"
#include "filters/motion_pictures.h"
#include "filters/motion_reference.h"
#include "support/every_target.h"

namespace orvane {
namespace {

using reference::Picture;
using test::difference;
using test::noisyPicture;
using test::onEveryTarget;
using test::resultOf;

void check(const Picture& source, int x, int y, int strength) {
    const Picture expected = reference::blurZoom(source, x, y, strength);
    onEveryTarget([&] {
        const Picture actual = resultOf(source, [=](ImageDocument& d) { blurZoom(d, x, y, strength); });
        ASSERT_EQ(difference(actual, expected), "")
            << "centre " << x << ", " << y << ", strength " << strength;
    });
}

TEST(DigitalRay, IsTheWalkToTheCentre) {
    constexpr int kReach = 45;
    for (int dy = -kReach; dy <= kReach; ++dy) {
        for (int dx = -kReach; dx <= kReach; ++dx) {
            const DigitalRay ray({0, 0}, {dx, dy});
            std::vector<reference::Point> points;
            for (int j = 0; j <= ray.steps && ray.steps > 0; ++j) {
                const int side = ray.sideOf(j);
                points.push_back(ray.alongX ? reference::Point{j * ray.stepX, side * ray.stepY}
                                            : reference::Point{side * ray.stepX, j * ray.stepY});
            }
            ASSERT_EQ(points, reference::ray({0, 0}, {dx, dy}, 1000)) << dx << ", " << dy;
        }
    }
}

TEST(DigitalRay, SettlesTiesAlsoFarOut) {
    // Every odd point of a ray with half as many sidesteps lies in the middle between two pixels.
    constexpr int kSteps = 4000000;
    const DigitalRay early({0, 0}, {kSteps / 2, kSteps}), late({0, 0}, {-kSteps / 2, kSteps});
    for (int j : {1, 3, 2000001, kSteps - 1}) {
        EXPECT_EQ(early.sideOf(j), (j + 1) / 2);
        EXPECT_EQ(late.sideOf(j), j / 2);
    }
}

TEST(BlurZoom, IsTheMeanAlongTheRaysAtEverySize) {
    const int strengths[] = {0, 1, 7, 40, -3, 200};
    for (int width = 2; width <= 70; ++width) {
        const int height = 2 + width * 29 % 69;
        const Picture source = noisyPicture(width, height);
        check(source, width / 2, height / 2, 10);
        check(source, width * 7 % 31, height * 5 % 41, strengths[width % 6]);
        check(source, -50, 1000, strengths[(width + 3) % 6]);
    }
}

TEST(BlurZoom, EveryCentreOfASmallPicture) {
    const Picture source = noisyPicture(13, 10);
    for (int y = 0; y <= 9; ++y) {
        for (int x = 0; x <= 12; ++x) check(source, x, y, 5);
    }
}

// They come from scaling; a centre off the border would lie outside.
TEST(BlurZoom, OneRowOneColumnOnePixel) {
    for (const IntSize size : {IntSize{1, 1}, {1, 9}, {9, 1}, {90, 1}, {1, 90}}) {
        const Picture source = noisyPicture(size.width, size.height);
        for (int at : {-5, 0, 4, 100}) check(source, at, at, 20);
    }
}

// Where rays hardly differ, they are taken piece by piece.
TEST(BlurZoom, VeryLongPictures) {
    const IntSize sizes[] = {{80, 2}, {81, 2}, {2, 83}, {121, 3}, {3, 122}, {5, 201}, {283, 7}, {7, 301}};
    for (const auto& [width, height] : sizes) {
        const Picture source = noisyPicture(width, height);
        for (int strength : {0, 3, 50, 100000, -7, INT_MAX}) {
            check(source, width / 2, height / 2, strength);
            check(source, width / 5, 0, strength);
            check(source, width, height / 3, strength);
        }
    }
}

TEST(BlurZoom, HugeArguments) {
    const Picture source = noisyPicture(31, 22);
    for (int strength : {INT_MAX, INT_MIN, 5000, 1 << 24}) {
        check(source, 15, 11, strength);
        check(source, INT_MIN, INT_MAX, strength);
    }
    check(noisyPicture(5000, 2), 300, 0, 9000);
    check(noisyPicture(3, 2000), 1, 900, 6000);
}

TEST(BlurZoom, LargePicture) {
#ifdef NDEBUG
    check(noisyPicture(1501, 1130), 700, 600, 40);
#endif
    check(noisyPicture(301, 211), 10, 200, 60);
}

}  // namespace
}  // namespace orvane
