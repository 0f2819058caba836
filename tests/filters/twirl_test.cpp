#include "filters/twirl.h"

#include <gtest/gtest.h>

#include <climits>

#include "filters/motion_pictures.h"
#include "filters/motion_reference.h"
#include "support/every_target.h"

namespace orvane {
namespace {

using reference::Picture;
using test::difference;
using test::onEveryTarget;
using test::resultOf;

constexpr Argb kBack = 0xFF123456u;

void check(const Picture& source, int degrees) {
    const Picture expected = reference::twirl(source, degrees, kBack);
    onEveryTarget([&] {
        const Picture actual = resultOf(source, [=](ImageDocument& d) {
            d.bitmapBackColor = kBack;
            twirl(d, degrees);
        });
        ASSERT_EQ(difference(actual, expected), "") << degrees << " degrees";
    });
}

TEST(Twirl, TakesEachPixelFromItsTwistedPlaceAtEverySize) {
    const int angles[] = {1, -1, 45, 90, -90, 180, 360, -1000, 7, 123456, -33};
    for (int width = 2; width <= 70; ++width) {
        const int height = 2 + width * 29 % 69;
        for (int i = 0; i < 3; ++i) {
            const int degrees = angles[(3 * width + i) % 11];
            check(test::noisyPicture(width, height), degrees);
            check(test::opaquePicture(height, width), degrees);
        }
    }
}

TEST(Twirl, HugeAnglesAndLongPicturesAreExact) {
    for (int degrees : {INT_MAX, INT_MIN, 1 << 30, 360000}) {
        check(test::noisyPicture(67, 45), degrees);
        check(test::noisyPicture(2, 300), degrees);
    }
    check(test::opaquePicture(30000, 3), 90);
    check(test::opaquePicture(3, 30000), -40);
#ifdef NDEBUG
    check(test::opaquePicture(2003, 1502), 90);
    check(test::noisyPicture(1502, 2004), 1);
#endif
}

TEST(Twirl, KeepsTheCentre) {
    const Picture source = test::opaquePicture(9, 9);
    for (int degrees : {30, -170}) {
        const Picture twisted = resultOf(source, [=](ImageDocument& d) { twirl(d, degrees); });
        EXPECT_EQ(twisted.at(4, 4), source.at(4, 4));
        EXPECT_NE(difference(twisted, source), "");
    }
}

TEST(Twirl, RefusesNoTwist) {
    test::expectRefused([](ImageDocument& d) { twirl(d, 0); });
}

}  // namespace
}  // namespace orvane
