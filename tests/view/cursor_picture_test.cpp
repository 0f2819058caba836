#include <gtest/gtest.h>

#include <orvane/cursor_picture.h>

namespace orvane {
namespace {

TEST(CursorPicture, IsThereForTheFourCursorsThatNoSystemHas) {
    for (int id = 0; id <= 9; ++id) {
        const CursorPicture picture = cursorPicture(CursorId(id));
        ASSERT_EQ(bool(picture.pixels), id >= 6) << id;
        if (id < 6) continue;
        EXPECT_EQ((IntSize{picture.pixels.width, picture.pixels.height}), (IntSize{32, 32}));
        EXPECT_TRUE((IntRect{0, 0, 32, 32}.contains(picture.hotSpot))) << id;
        int clear = 0, solid = 0;
        for (std::size_t i = 0; i < picture.pixels.pixelCount(); ++i) {
            clear += alphaOf(picture.pixels.pixels[i]) == 0;
            solid += alphaOf(picture.pixels.pixels[i]) == 255;
        }
        EXPECT_GT(clear, 300) << id;
        EXPECT_GT(solid, 150) << id;
        EXPECT_EQ(cursorPicture(CursorId(id)).pixels.pixels, picture.pixels.pixels);
    }
}

}  // namespace
}  // namespace orvane
