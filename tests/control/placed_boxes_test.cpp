#include <gtest/gtest.h>

#include "support/test_control.h"
#include "tools/image_stamp_tool.h"
#include "tools/stamp_pattern.h"
#include "tools/text_tool.h"

namespace orvane {
namespace {

PixelSurface surfaceOf(int width, int height, Argb colour) {
    PixelSurface surface = PixelSurface::create(width, height);
    const MutablePixelView pixels = surface.overwrite();
    std::fill_n(pixels.pixels, pixels.pixelCount(), colour);
    return surface;
}

int paintedPixels(PixelView view, Argb ground) {
    int count = 0;
    for (std::size_t i = 0; i < view.pixelCount(); ++i) count += view.pixels[i] != ground;
    return count;
}

TEST(StampPattern, RunsFromTheFirstTransparencyToTheSecond) {
    const auto alphaAt = [](int style, int t1, int t2, IntPoint at, IntSize size = {100, 50}) {
        PixelSurface surface = surfaceOf(size.width, size.height, 0x12345678u);
        const StampSettings settings{style, std::uint8_t(t1), std::uint8_t(t2)};
        applyStampPattern(surface.write(), settings);
        const Argb pixel = surface.read().at(at.x, at.y);
        EXPECT_EQ(pixel & 0xFFFFFFu, 0x345678u) << "colours stay";
        return int(alphaOf(pixel));
    };
    const struct {
        int style, t1, t2;
        IntPoint at;
        int alpha;
    } rows[] = {
        {0, 200, 10, {99, 49}, 200}, {1, 255, 0, {7, 25}, 127},   {1, 100, 200, {7, 49}, 198},
        {2, 255, 0, {0, 9}, 255},    {2, 255, 0, {50, 9}, 127},   {2, 255, 0, {99, 9}, 2},
        {3, 255, 0, {0, 0}, 255},    {3, 255, 0, {99, 49}, 3},    {4, 255, 0, {99, 0}, 252},
        {4, 255, 0, {0, 49}, 1},     {5, 40, 140, {50, 25}, 40},  {5, 40, 140, {0, 0}, 140},
        {6, 40, 140, {50, 25}, 40},  {6, 40, 140, {75, 25}, 140}, {6, 40, 140, {76, 25}, 0},
        {6, 255, 255, {0, 0}, 255},  {9, 30, 200, {4, 4}, 30},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(alphaAt(row.style, row.t1, row.t2, row.at), row.alpha)
            << "style " << row.style << " at " << row.at.x << ", " << row.at.y;
    }
    for (int style = 0; style <= 6; ++style) alphaAt(style, 3, 250, {0, 0}, {1, 1});
}

TEST(StampPattern, TheMaskColourIsLeftOutAndComesBack) {
    const PenSettings pen;
    BrushSettings brush;
    StampSettings settings{.transparency1 = 90};
    ImageStampTool stamp(pen, brush, settings);
    PixelSurface picture = surfaceOf(8, 8, 0xFFFFFFFFu);
    picture.write().at(2, 2) = 0xFFFFFFFEu;
    ImageDocument document;
    document.newImage(20, 20);
    document.bitmapBackColor = 0;

    stamp.setPicture(picture);
    settings.useMaskColour = true;
    stamp.applyPattern();
    MutablePixelView image = document.lockCurrent();
    std::fill_n(image.pixels, image.pixelCount(), 0u);
    stamp.box.x = stamp.box.y = 0;
    stamp.Draw(image);
    EXPECT_EQ(image.at(4, 4), 0x5AFFFFFEu);
    EXPECT_EQ(image.at(5, 5), 0u);
    settings.useMaskColour = false;
    stamp.applyPattern();
    stamp.Draw(image);
    EXPECT_EQ(image.at(5, 5), 0x5AFFFFFFu);
}

// Where the picture is shown at zoom 1 is where it goes, and with the same pixels.
TEST(ImageStamp, IsPlacedDraggedAndMerged) {
    TestControl control(200, 150);
    control.put("BitmapBackColor", ColorValue{0x00C0C0C0});
    control.call("NewImage", {100, 80});
    control.call("SaveImage", {u"/tmp/orvane-stamp-test.png", 4});
    control.put("BitmapBackColor", ColorValue{0x00000000});
    control.call("NewImage", {150, 100});

    control.call("DrawImage", {u"/nonexistent"});
    EXPECT_EQ(control.number("PaintStatus"), 0);
    control.call("DrawImage", {u"/tmp/orvane-stamp-test.png"});
    EXPECT_EQ(control.number("PaintStatus"), 16);
    const IntPoint corner = control.control().toWindow({0, 0});
    EXPECT_EQ(control.control().tools.imageStamp.box, (IntRect{corner.x, corner.y, 103, 83}));

    control.move(corner.x + 50, corner.y + 40);
    EXPECT_EQ(control.window().cursor(), CursorId::Move);
    control.drag({{corner.x + 50, corner.y + 40}, {corner.x + 60, corner.y + 45}});
    const PixelView shown = control.window().picture();
    const IntPoint first = control.control().toImage({corner.x + 10, corner.y + 5});
    EXPECT_EQ(shown.at(corner.x + 12 + 50, corner.y + 7 + 50), 0xFFC0C0C0u);
    EXPECT_EQ(shown.at(corner.x + 12 + 100 + 4, corner.y + 60), 0xFF000000u);
    control.call("Accept");
    const PixelView image = control.document().currentPixels();
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
            const bool inside = IntRect{first.x + 2, first.y + 2, 100, 80}.contains({x, y});
            ASSERT_EQ(image.at(x, y), inside ? 0xFFC0C0C0u : 0xFF000000u) << x << ", " << y;
        }
    }
    EXPECT_TRUE(control.flag("UndoEnable"));
    control.call("Accept");
    control.call("Undo");
    EXPECT_FALSE(control.flag("UndoEnable")) << "one step; nothing was left to accept";
    std::remove("/tmp/orvane-stamp-test.png");
}

// At other zooms the stamp is shown in its zoomed size and stays on its image pixels.
TEST(ImageStamp, FollowsTheZoom) {
    TestControl control(300, 300);
    control.call("NewImage", {100, 100});
    control.control().placeStamp(surfaceOf(40, 20, 0xFF00FF00u));
    const IntRect atOne = control.control().tools.imageStamp.box;
    control.call("ZoomIn");
    control.call("ZoomIn");
    const IntRect zoomed = control.control().tools.imageStamp.box;
    EXPECT_NEAR(zoomed.width, atOne.width * 1.21, 2);
    EXPECT_NEAR(zoomed.height, atOne.height * 1.21, 2);
    const int painted = paintedPixels(control.window().picture(), 0xFFFFFFFFu);
    EXPECT_GT(painted, 40 * 20);
    EXPECT_EQ(control.window().picture().at(zoomed.x + 10, zoomed.y + 10), 0xFF00FF00u);
    control.control().placeStamp(surfaceOf(40, 20, 0xFF0000FFu));
    EXPECT_NEAR(control.control().tools.imageStamp.box.width, 43 * 1.21, 2);
}

// A file that is no picture becomes a stamp that shows nothing.
TEST(ImageStamp, AnUndecodableFileIsAStepWithoutAChange) {
    TestControl control;
    control.call("NewImage", {100, 100});
    control.call("DrawImage", {u"/proc/self/exe"});
    EXPECT_EQ(control.number("PaintStatus"), 16);
    control.call("Accept");
    EXPECT_TRUE(control.flag("UndoEnable"));
    EXPECT_EQ(paintedPixels(control.document().currentPixels(), 0xFFFFFFFFu), 0);
}

TEST(Text, IsPlacedDraggedAndDrawn) {
    TestControl control(300, 200);
    control.call("DrawString", {u"early"});
    EXPECT_EQ(control.number("PaintStatus"), 0) << "there is no picture";
    control.call("NewImage", {200, 100});
    control.call("DrawString", {u"Lake"});
    EXPECT_EQ(control.number("PaintStatus"), 14);
    const IntPoint corner = control.control().toWindow({0, 0});
    TextTool& text = control.control().tools.text;
    EXPECT_EQ((IntPoint{text.box.x, text.box.y}), (IntPoint{corner.x + 1, corner.y + 1}));
    EXPECT_GT(text.box.width, 20);
    EXPECT_GT(text.box.height, 15);
    EXPECT_FALSE(control.flag("Modified"));
    control.put("FontSize", std::uint8_t{40});
    EXPECT_GT(text.box.height, 35) << "the box follows the font";

    control.drag({{corner.x + 10, corner.y + 10}, {corner.x + 40, corner.y + 15}});
    control.drag({{3, 3}, {corner.x + 50, corner.y + 15}});  // the grab of the first drag stays in force
    EXPECT_EQ(text.box.x, corner.x + 1 + 40);
    const IntRect box = text.box;
    const PixelSurface before = *control.document().currentSurface();
    control.call("Accept");
    EXPECT_EQ(text.box, IntRect{});
    const IntPoint origin = control.control().toImage({box.x, box.y});
    const PixelView image = control.document().currentPixels();
    int inside = 0, outside = 0;
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
            const bool painted = image.at(x, y) != before.read().at(x, y);
            const bool near =
                IntRect{origin.x - 2, origin.y - 2, box.width + 4, box.height + 4}.contains({x, y});
            (near ? inside : outside) += painted;
        }
    }
    EXPECT_GT(inside, 200);
    EXPECT_EQ(outside, 0);
    control.call("Accept");
    control.call("Undo");
    EXPECT_FALSE(control.flag("UndoEnable"));
}

TEST(Text, WithoutTextFontOrBrush) {
    TestControl control(300, 200);
    control.call("NewImage", {200, 100});
    control.call("DrawString", {u""});
    EXPECT_EQ(control.number("PaintStatus"), 14);
    control.move(60, 60);
    EXPECT_EQ(control.window().cursor(), CursorId::Arrow);
    control.call("Accept");
    EXPECT_FALSE(control.flag("Modified"));

    control.put("BrushStyle", 4);
    control.call("DrawString", {u"no brush"});
    control.call("Accept");
    EXPECT_TRUE(control.flag("Modified")) << "the text is gone with a step that draws nothing";
    EXPECT_EQ(paintedPixels(control.document().currentPixels(), 0xFFFFFFFFu), 0);
}

}  // namespace
}  // namespace orvane
