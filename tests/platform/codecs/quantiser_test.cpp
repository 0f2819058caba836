#include "platform/codecs/quantiser.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

#include "platform/codecs/nearest_colour.h"
#include "support/recording_decode_target.h"

namespace orvane {
namespace {

std::vector<Argb> restored(const IndexedPicture& indexed) {
    std::vector<Argb> pixels;
    for (std::uint8_t index : indexed.indices) pixels.push_back(indexed.palette.at(index));
    return pixels;
}

/// Grey values, as many as asked for, in rows of 16.
std::vector<Argb> makeDistinctColours(int count) {
    std::vector<Argb> pixels;
    for (int i = 0; i < count; ++i) pixels.push_back(makeOpaque(unsigned(i % 256), unsigned(i / 256), 7));
    return pixels;
}

TEST(NearestColour, FindsWhatASearchOfAllFinds) {
    std::uint32_t noise = 1;
    const auto random = [&] { return (noise = noise * 214013u + 2531011u) >> 8; };
    for (int size : {1, 2, 17, 256}) {
        std::vector<Argb> palette;
        for (int i = 0; i < size; ++i)
            palette.push_back(makeOpaque(random() & 255u, random() & 255u, random() & 127u));
        NearestColour nearest(palette);
        const auto distanceTo = [&](int index, const int(&wanted)[3]) {
            const Argb p = palette[std::size_t(index)];
            const int entry[3] = {int(redOf(p)), int(greenOf(p)), int(blueOf(p))};
            int distance = 0;
            for (std::size_t c = 0; c < 3; ++c) {
                distance += kColourWeights[c] * (wanted[c] - entry[c]) * (wanted[c] - entry[c]);
            }
            return distance;
        };
        for (int trial = 0; trial < 5000; ++trial) {
            const int wanted[3] = {int(random() & 255u), int(random() & 255u), int(random() & 255u)};
            int best = 0;
            for (int i = 1; i < size; ++i) best = distanceTo(i, wanted) < distanceTo(best, wanted) ? i : best;
            ASSERT_EQ(nearest.find(wanted[0], wanted[1], wanted[2]), best) << size << " entries";
        }
    }
}

TEST(Quantiser, FewColoursStayExactly) {
    for (int count : {1, 2, 255, 256}) {
        const std::vector<Argb> pixels = makeDistinctColours(count);
        const IndexedPicture indexed = quantise({pixels.data(), count, 1, count});
        EXPECT_EQ(restored(indexed), pixels) << count;
        EXPECT_EQ(indexed.palette.size(), std::size_t(count));
        EXPECT_EQ(indexed.transparentIndex, -1);
    }
}

TEST(Quantiser, OneColourTooManyIsFitted) {
    std::vector<Argb> pixels = makeDistinctColours(257);
    EXPECT_LE(quantise({pixels.data(), 257, 1, 257}).palette.size(), 256u);

    pixels.resize(256);
    pixels[9] = 0x7f123456u;  // takes one place for itself
    const IndexedPicture exact = quantise({pixels.data(), 256, 1, 256});
    pixels.push_back(makeOpaque(1, 2, 3));
    const IndexedPicture fitted = quantise({pixels.data(), 257, 1, 257});
    for (const IndexedPicture* indexed : {&exact, &fitted}) {
        EXPECT_LE(indexed->palette.size(), 256u);
        ASSERT_GE(indexed->transparentIndex, 0);
        for (std::size_t i = 0; i < indexed->indices.size(); ++i) {
            EXPECT_EQ(indexed->indices[i] == indexed->transparentIndex, i == 9) << i;
        }
    }
}

TEST(Quantiser, AlphaIsDecidedAtTheMiddle) {
    const Argb pixels[] = {0x00ff0000u, 0x7f00ff00u, 0x800000ffu, 0xffffffffu};
    const IndexedPicture indexed = quantise({pixels, 4, 1, 4});
    EXPECT_EQ(restored(indexed), (std::vector<Argb>{0, 0, 0xff0000ffu, 0xffffffffu}));
}

TEST(Quantiser, SpreadsTheErrorSoThatAreasKeepTheirColour) {
    constexpr int kSide = 96;
    std::vector<Argb> pixels;
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            pixels.push_back(makeOpaque(unsigned(40 + x * 2), unsigned(60 + y), unsigned(200 - x - y / 2)));
        }
    }
    for (int colours : {64, 256}) {
        const std::vector<Argb> result = restored(quantise({pixels.data(), kSide, kSide, kSide}, colours));
        double worst = 0;
        for (int top = 0; top < kSide; top += 16) {
            for (int left = 0; left < kSide; left += 16) {
                double sums[3] = {};
                for (int i = 0; i < 256; ++i) {
                    const std::size_t at = std::size_t((top + i / 16) * kSide + left + i % 16);
                    sums[0] += double(redOf(result[at])) - double(redOf(pixels[at]));
                    sums[1] += double(greenOf(result[at])) - double(greenOf(pixels[at]));
                    sums[2] += double(blueOf(result[at])) - double(blueOf(pixels[at]));
                }
                for (double sum : sums) worst = std::max(worst, std::abs(sum / 256));
            }
        }
        EXPECT_LT(worst, 2.0) << colours << " colours";
    }
}

TEST(Quantiser, ASmallVividSpotIsNotLost) {
    std::vector<Argb> pixels = makeTestPixels(64, 64, true);
    for (int i = 0; i < 12; ++i) pixels[std::size_t(i)] = makeOpaque(0, 255, 255);
    const std::vector<Argb> result = restored(quantise({pixels.data(), 64, 64, 64}));
    EXPECT_LT(redOf(result[5]), 40u);
    EXPECT_GT(blueOf(result[5]), 215u);
}

}  // namespace
}  // namespace orvane
