#include "filters/blur_radial.h"

#include <gtest/gtest.h>

#include <climits>

#include "filters/kernels/digital_ring.h"
#include "filters/motion_pictures.h"
#include "filters/motion_reference.h"
#include "support/every_target.h"

namespace orvane {
namespace {

using reference::Picture;
using reference::Point;
using test::difference;
using test::noisyPicture;
using test::onEveryTarget;
using test::resultOf;

void check(const Picture& source, int x, int y, int angle) {
    const Picture expected = reference::blurRadial(source, x, y, angle);
    onEveryTarget([&] {
        const Picture actual = resultOf(source, [=](ImageDocument& d) { blurRadial(d, x, y, angle); });
        ASSERT_EQ(difference(actual, expected), "") << "centre " << x << ", " << y << ", angle " << angle;
    });
}

TEST(DigitalRing, IsTheWalkRoundTheCentre) {
    DigitalRing ring;
    std::vector<Point> turned, walked;
    for (int radius = 2; radius <= 900; ++radius) {
        ring.trace(radius);
        turned.clear();
        for (std::size_t i = 0; i < ring.up.size(); ++i) turned.push_back({-ring.across[i], -ring.up[i]});
        const std::size_t quarter = turned.size();
        for (std::size_t i = 0; i < 3 * quarter; ++i) turned.push_back({-turned[i].y, turned[i].x});
        ASSERT_EQ(turned, reference::ring(radius, {0, 0}, 10000)) << radius;
    }
}

TEST(BlurRadial, IsTheMeanAlongTheRingsAtEverySize) {
    const int angles[] = {0, 1, 20, 90, 359, -90, 720};
    for (int width = 2; width <= 70; ++width) {
        const int height = 2 + width * 29 % 69;
        const Picture source = noisyPicture(width, height);
        check(source, width / 2, height / 2, 20);
        check(source, width * 7 % 31, height * 5 % 41, angles[width % 7]);
        check(source, -50, 1000, angles[(width + 3) % 7]);
    }
}

TEST(BlurRadial, EveryCentreOfASmallPicture) {
    const Picture source = noisyPicture(13, 10);
    for (int y = 0; y <= 9; ++y) {
        for (int x = 0; x <= 12; ++x) check(source, x, y, 60);
    }
}

TEST(BlurRadial, OneRowOneColumnOnePixel) {
    for (const IntSize size : {IntSize{1, 1}, {1, 9}, {9, 1}, {90, 1}, {1, 90}}) {
        const Picture source = noisyPicture(size.width, size.height);
        for (int at : {-5, 0, 4, 100}) check(source, at, at, 60);
    }
}

TEST(BlurRadial, HugeArgumentsAndLongPictures) {
    for (int angle : {INT_MAX, INT_MIN, 1 << 24, 100000}) {
        check(noisyPicture(31, 22), 15, 11, angle);
        check(noisyPicture(17, 24), INT_MIN, INT_MAX, angle);
    }
    // Windows of more than 8191 points.
    check(noisyPicture(2000, 2), 300, 0, 500);
    check(noisyPicture(3, 900), 1, 400, 2000);
}

// Where rings leave the picture on all but two short pieces, most of their sums come from its long sides.
TEST(BlurRadial, VeryLongPictures) {
    const IntSize sizes[] = {{32, 2}, {2, 33}, {150, 2}, {3, 181}, {131, 5}, {7, 260}, {401, 9}};
    for (const auto& [width, height] : sizes) {
        const Picture source = noisyPicture(width, height);
        for (int angle : {0, 3, 40, 90, 150, 300, 361, 5000, -90, INT_MAX}) {
            check(source, width / 2, height / 2, angle);
            check(source, width / 5, 0, angle);
            check(source, width, height / 3, angle);
        }
    }
}

TEST(BlurRadial, LargePicture) {
#ifdef NDEBUG
    check(noisyPicture(901, 730), 400, 300, 20);
#endif
    check(noisyPicture(211, 151), 10, 120, 45);
}

}  // namespace
}  // namespace orvane
