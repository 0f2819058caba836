#include <gtest/gtest.h>

#include "control/clipboard_exchange.h"
#include "support/failing_allocator.h"
#include "support/pictures.h"
#include "support/test_control.h"

namespace orvane {
namespace {

using namespace test;

/// A control that shows this picture at zoom 1.0, with window positions for its pixels.
class ClipboardTest : public ::testing::Test {
 protected:
    void show(int width, int height) {
        loadPicture(control_.document(), randomPicture(std::size_t(width) * std::size_t(height), 7), width,
                    height);
    }
    [[nodiscard]] IntPoint corner() {
        const IntRect shown = control_.document().imageRect();
        return {shown.x, shown.y};
    }
    [[nodiscard]] IntPoint opposite() {
        const IntRect shown = control_.document().imageRect();
        return {shown.right(), shown.bottom()};
    }
    /// The window position of an image pixel at zoom 1.0.
    [[nodiscard]] IntPoint at(int x, int y) { return {corner().x + x, corner().y + y}; }

    TestControl control_{400, 300};
};

IntSize sizeOf(const PixelSurface& surface) { return {surface.width(), surface.height()}; }

/// Whether the picture is that part of the image without its alpha.
void expectPart(const PixelSurface& picture, PixelView image, IntRect part) {
    ASSERT_EQ(sizeOf(picture), (IntSize{part.width, part.height}));
    for (int y = 0; y < part.height; ++y) {
        for (int x = 0; x < part.width; ++x) {
            ASSERT_EQ(picture.read().at(x, y), image.at(part.x + x, part.y + y) | 0xff000000u)
                << x << ' ' << y;
        }
    }
}

TEST_F(ClipboardTest, CopiesThePixelsUnderBothCornersAsFarAsThereAreAny) {
    show(60, 40);
    const struct {
        const char* what;
        IntPoint corner, opposite;
        IntRect copied;  // empty: the clipboard stays as it is
    } rows[] = {
        {"inside", {10, 5}, {19, 24}, {10, 5, 10, 20}},
        {"corners the other way round", {19, 5}, {10, 24}, {10, 5, 10, 20}},
        {"one pixel", {59, 39}, {59, 39}, {59, 39, 1, 1}},
        {"over the top left corner", {-20, -9}, {0, 1}, {0, 0, 1, 2}},
        {"over the bottom right corner", {58, 39}, {60, 41}, {58, 39, 2, 1}},
        {"around the image", {-100, -100}, {1000, 1000}, {0, 0, 60, 40}},
        {"just left of it", {-20, 5}, {-1, 10}, {}},
        {"just below it", {10, 40}, {20, 50}, {}},
    };
    for (const auto& row : rows) {
        control_.clipboard().clear();
        copySelection(control_.control(), at(row.corner.x, row.corner.y), at(row.opposite.x, row.opposite.y));
        ASSERT_EQ(control_.flag("IsClipboardAvailable"), !row.copied.isEmpty()) << row.what;
        if (row.copied.isEmpty()) continue;
        SCOPED_TRACE(row.what);
        expectPart(pictureOnClipboard(control_.control()), control_.document().currentPixels(), row.copied);
    }
    EXPECT_FALSE(control_.flag("Modified"));
    constexpr int kFarthest = 2147483647;
    copySelection(control_.control(), {-kFarthest - 1, -kFarthest - 1}, {kFarthest, kFarthest});
}

TEST_F(ClipboardTest, AllThatIsShownIsTheWholeImageAtAnyZoom) {
    for (const IntSize size : {IntSize{2, 2}, IntSize{61, 40}, IntSize{400, 301}}) {
        show(size.width, size.height);
        for (const double zoom : {0.1, 0.25, 0.333, 0.9, 1.0, 1.1, 2.0, 7.3}) {
            control_.document().view.zoom = zoom;
            copySelection(control_.control(), corner(), opposite());
            EXPECT_EQ(sizeOf(pictureOnClipboard(control_.control())), size) << zoom;
        }
    }
}

TEST_F(ClipboardTest, CutFillsWhatItCopiesAsOneStep) {
    show(30, 20);
    control_.put("BitmapBackColor", ColorValue{0x0000ff});
    const std::vector<Argb> before = pictureOf(control_.document());
    (void)control_.redraws();
    ASSERT_TRUE(cutSelection(control_.control(), at(3, 4), at(7, 5)));

    const IntRect filled{3, 4, 5, 2};
    const PixelView after = control_.document().currentPixels();
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 30; ++x) {
            const Argb expected = filled.contains({x, y}) ? 0xffff0000u : before[std::size_t(y * 30 + x)];
            ASSERT_EQ(after.at(x, y), expected) << x << ' ' << y;
        }
    }
    expectPart(pictureOnClipboard(control_.control()), {before.data(), 30, 20, 30}, filled);
    EXPECT_EQ(control_.redraws(), 0);
    control_.call("Undo");
    EXPECT_EQ(pictureOf(control_.document()), before);
    EXPECT_FALSE(control_.flag("UndoEnable"));
    EXPECT_TRUE(control_.flag("RedoEnable"));
}

TEST_F(ClipboardTest, CutOutsideTheImageIsNoStep) {
    show(30, 20);
    EXPECT_FALSE(cutSelection(control_.control(), at(30, 0), at(40, 10)));
    EXPECT_FALSE(control_.flag("UndoEnable"));
    EXPECT_FALSE(control_.flag("IsClipboardAvailable"));
}

TEST_F(ClipboardTest, OneThatCannotBeOpenedGetsNothingAndGivesNothing) {
    show(30, 20);
    copySelection(control_.control(), at(0, 0), at(9, 9));
    control_.clipboard().refuse(true);
    EXPECT_TRUE(pictureOnClipboard(control_.control()).isNull());
    copySelection(control_.control(), at(0, 0), at(4, 4));
    EXPECT_TRUE(cutSelection(control_.control(), at(0, 0), at(2, 2)));
    EXPECT_EQ(control_.document().currentPixels().at(2, 2), 0xffffffffu) << "cut all the same";
    EXPECT_TRUE(control_.flag("UndoEnable"));
    control_.clipboard().refuse(false);
    EXPECT_EQ(sizeOf(pictureOnClipboard(control_.control())), (IntSize{10, 10})) << "what it held before";
}

TEST_F(ClipboardTest, UndecodableBlocksAreNoPicture) {
    EXPECT_TRUE(pictureOnClipboard(control_.control()).isNull());
    EXPECT_EQ(control_.clipboard().openings(), 0) << "not opened when nothing is offered";
    control_.clipboard().writeBitmap({});
    EXPECT_TRUE(control_.flag("IsClipboardAvailable")) << "offered, whatever it is";
    EXPECT_TRUE(pictureOnClipboard(control_.control()).isNull());
}

TEST_F(ClipboardTest, WithoutClipboardOrImageNothingHappens) {
    HeadlessWindow window;
    VistrelControl alone(&window);
    alone.document.newImage(20, 10);
    copySelection(alone, {0, 0}, {1000, 1000});
    EXPECT_FALSE(isPictureOnClipboard(alone));
    EXPECT_TRUE(pictureOnClipboard(alone).isNull());
    EXPECT_TRUE(cutSelection(alone, {0, 0}, {1000, 1000}));

    copySelection(control_.control(), {0, 0}, {1000, 1000});
    EXPECT_FALSE(cutSelection(control_.control(), {0, 0}, {1000, 1000}));
    EXPECT_EQ(control_.clipboard().openings(), 0);
}

TEST_F(ClipboardTest, ControlsExchangePicturesThroughOneClipboard) {
    show(30, 20);
    copySelection(control_.control(), corner(), opposite());
    HeadlessWindow window;
    const VistrelControl other(&window, &control_.clipboard());
    ASSERT_TRUE(isPictureOnClipboard(other));
    expectPart(pictureOnClipboard(other), control_.document().currentPixels(), {0, 0, 30, 20});
}

TEST_F(ClipboardTest, FailingAllocationsLoseTheCommandAndNothingElse) {
    show(30, 20);
    copySelection(control_.control(), at(0, 0), at(0, 0));
    bool refused = true;
    for (long n = 1; refused; ++n) {
        FailingAllocator::arm(n, 1'000'000);
        copySelection(control_.control(), corner(), opposite());
        refused = FailingAllocator::disarm();
        const IntSize kept = sizeOf(pictureOnClipboard(control_.control()));
        EXPECT_EQ(kept, (refused ? IntSize{1, 1} : IntSize{30, 20})) << n;
    }
    refused = true;
    for (long n = 1; refused; ++n) {
        FailingAllocator::arm(n, 1'000'000);
        const bool pasteable = !pictureOnClipboard(control_.control()).isNull();
        refused = FailingAllocator::disarm();
        EXPECT_NE(pasteable, refused) << n;
    }
}

}  // namespace
}  // namespace orvane
