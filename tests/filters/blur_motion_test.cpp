#include "filters/blur_motion.h"

#include <gtest/gtest.h>

#include <climits>

#include "filters/kernels/mean_divisor.h"
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

void check(const Picture& source, int radius) {
    for (int direction = -1; direction <= 2; ++direction) {
        const Picture expected = reference::blurMotion(source, radius, direction);
        onEveryTarget([&] {
            const Picture actual =
                resultOf(source, [=](ImageDocument& d) { blurMotion(d, radius, direction); });
            ASSERT_EQ(difference(actual, expected), "") << "radius " << radius << ", direction " << direction;
        });
    }
}

TEST(BlurMotion, IsTheMeanOfTheLineAtEverySize) {
    for (int width = 2; width <= 70; ++width) {
        const Picture source = noisyPicture(width, 2 + width * 29 % 69);
        check(source, 1 + width % 13);
        if (width % 8 == 2) {
            for (int radius : {1, 31, 69, 128, 129, 200}) check(source, radius);
        }
    }
    for (int height = 2; height <= 70; height += 17) check(noisyPicture(2, height), height - 1);
}

TEST(BlurMotion, HugeRadiiWeighTheEndsOfTheLine) {
    for (int radius : {70000, 8421505, INT_MAX}) {
        check(noisyPicture(17, 5), radius);
        check(noisyPicture(5, 17), radius);
    }
}

TEST(BlurMotion, WhiteAndBlackStayAsTheyAreWithAnyRadius) {
    Picture source{40, 3, std::vector<Argb>(120, 0x00FFFFFFu)};
    for (std::size_t i = 0; i < 20; ++i) source.pixels[i] = 0;
    for (int radius = 1; radius <= 140; ++radius) check(source, radius);
}

TEST(BlurMotion, LargePicturesAreWrittenThroughTheSameMeans) {
#ifdef NDEBUG
    // One width that keeps rows aligned, where the results bypass the caches, and one that does not.
    check(noisyPicture(3008, 2111), 10);
    check(noisyPicture(3001, 2111), 3);
#endif
    check(noisyPicture(301, 211), 10);
}

TEST(BlurMotion, DividesEverySumExactly) {
    for (int count = 3; count <= MeanDivisor::kMaxCount; count += 2) {
        const MeanDivisor divisor(count);
        for (int sum = 0; sum <= 255 * count; ++sum) {
            const unsigned biased = unsigned(sum) + divisor.bias;
            ASSERT_LT(biased, 65536u);
            ASSERT_EQ(biased * divisor.factor >> 16 >> divisor.shift, unsigned(sum / count))
                << sum << " / " << count;
        }
    }
}

TEST(BlurMotion, SmearsAnUprightLineSidewaysOnly) {
    Picture line{5, 3, std::vector<Argb>(15, 0x80000000u)};
    for (int y = 0; y < 3; ++y) line.at(2, y) = 0x80FFFFFFu;
    const auto middleRow = [&](int direction) {
        const Picture result = resultOf(line, [=](ImageDocument& d) { blurMotion(d, 1, direction); });
        return std::vector<Argb>(result.pixels.begin() + 5, result.pixels.begin() + 10);
    };
    constexpr Argb kBlack = 0xFF000000u, kThird = 0xFF555555u, kWhite = 0xFFFFFFFFu;
    EXPECT_EQ(middleRow(0), (std::vector<Argb>{kBlack, kThird, kThird, kThird, kBlack}));
    EXPECT_EQ(middleRow(2), (std::vector<Argb>{kBlack, kBlack, kWhite, kBlack, kBlack}));
}

TEST(BlurMotion, AnyOtherDirectionRisesToTheRight) {
    Picture dot{5, 5, std::vector<Argb>(25, 0xFF000000u)};
    dot.at(2, 2) = 0xFFFFFFFFu;
    for (int direction : {-1, 3, 7, INT_MIN, INT_MAX}) {
        const Picture result = resultOf(dot, [=](ImageDocument& d) { blurMotion(d, 1, direction); });
        EXPECT_EQ(result.at(3, 1), 0xFF555555u) << direction;
        EXPECT_EQ(result.at(1, 3), 0xFF555555u) << direction;
        EXPECT_EQ(result.at(1, 1), 0xFF000000u) << direction;
    }
}

TEST(BlurMotion, RefusesRadiiBelowOne) {
    for (int radius : {0, -1, INT_MIN}) {
        test::expectRefused([=](ImageDocument& d) { blurMotion(d, radius, 0); });
    }
}

}  // namespace
}  // namespace orvane
