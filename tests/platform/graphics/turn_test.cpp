#include "platform/graphics/turn.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/every_target.h"
#include "support/pictures.h"

namespace orvane {
namespace {

/// Where the target's pixel (x, y) comes from, in a source of w x h.
Argb turnedPixel(const PixelView& s, int type, int x, int y) {
    const int right = s.width - 1, bottom = s.height - 1;
    switch (type) {
        case 0:
            return s.at(x, y);
        case 1:
            return s.at(y, bottom - x);
        case 2:
            return s.at(right - x, bottom - y);
        case 3:
            return s.at(right - y, x);
        case 4:
            return s.at(right - x, y);
        case 5:
            return s.at(y, x);
        case 6:
            return s.at(x, bottom - y);
        default:
            return s.at(right - y, bottom - x);
    }
}

void expectTurned(const PixelView& source, int type) {
    constexpr Argb kGuard = 0x5AC35AC3u;
    const auto turn = Turn(type);
    const int width = exchangesSides(turn) ? source.height : source.width;
    const int height = exchangesSides(turn) ? source.width : source.height;
    // Rows with guards between them, at every alignment.
    const std::size_t stride = std::size_t(width) + 1 + std::size_t(width + height) % 3;
    std::vector<Argb> raster(stride * std::size_t(height) + 1, kGuard);
    const MutablePixelView target{raster.data() + 1, width, height, std::ptrdiff_t(stride)};
    copyTurned(source, target, turn);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            ASSERT_EQ(target.at(x, y), turnedPixel(source, type, x, y))
                << source.width << " x " << source.height << ", type " << type << " at " << x << ", " << y;
        }
        for (std::size_t i = std::size_t(width); i < stride; ++i) ASSERT_EQ(target.row(y)[i], kGuard);
        ASSERT_EQ(raster[0], kGuard);
    }
}

TEST(Turn, MovesEveryPixelWhereItBelongs) {
    const auto pixels = test::randomPicture(600 * 300, 3u);
    std::vector<IntSize> sizes = {{1, 1}, {1, 70}, {70, 1}, {300, 5}, {65, 257}, {66, 600}, {600, 300}};
    for (int width = 2; width <= 40; ++width) sizes.push_back({width, 1 + width * 7 % 23});
    test::onEveryTarget([&] {
        for (const IntSize size : sizes) {
            const PixelView source{pixels.data() + 1, size.width, size.height, size.width + 3};
            const bool fits = std::size_t(size.width + 3) * std::size_t(size.height) < pixels.size();
            const PixelView packed{pixels.data(), size.width, size.height, size.width};
            for (int type = 0; type < 8; ++type) expectTurned(fits ? source : packed, type);
        }
    });
}

/// Large ones are written around the caches.
TEST(Turn, MovesLargePicturesToo) {
    const auto pixels = test::randomPicture(2801 * 2503, 3u);
    const PixelView source{pixels.data(), 2801, 2503, 2801};
    for (int type = 0; type < 8; ++type) {
        const auto turn = Turn(type);
        const int width = exchangesSides(turn) ? 2503 : 2801, height = exchangesSides(turn) ? 2801 : 2503;
        std::vector<Argb> raster(pixels.size());
        copyTurned(source, {raster.data(), width, height, width}, turn);
        bool same = true;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                same = same && raster[std::size_t(y) * std::size_t(width) + std::size_t(x)] ==
                                   turnedPixel(source, type, x, y);
            }
        }
        EXPECT_TRUE(same) << type;
    }
}

}  // namespace
}  // namespace orvane
