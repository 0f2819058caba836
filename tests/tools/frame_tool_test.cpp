#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "support/test_control.h"
#include "tools/crop_tool.h"
#include "tools/red_eye_correction.h"
#include "tools/red_eye_tool.h"
#include "tools/selection_tool.h"

namespace orvane {
namespace {

/// A frame tool in a window of 400 x 300 that shows the image at (100, 80), 200 x 120 pixels large.
class FrameToolTest : public ::testing::Test {
 protected:
    FrameToolTest() {
        frame_.bounds = {0, 0, 400, 300};
        frame_.limit = {100, 80, 200, 120};
    }
    void drag(IntPoint from, IntPoint to) {
        frame_.OnMouseDown(MouseButton::Left, from);
        frame_.OnMouseMove(to);
        frame_.OnMouseUp(to);
    }
    static IntRect corners(const FrameTool& tool) {
        return {tool.corner1.x, tool.corner1.y, tool.corner2.x, tool.corner2.y};
    }
    IntRect corners() const { return corners(frame_); }

    PenSettings pen_;
    BrushSettings brush_;
    FrameTool frame_{pen_, brush_};
};

TEST_F(FrameToolTest, IsLaidOutInsideTheImage) {
    const struct {
        const char* name;
        IntPoint from, to;
        IntRect corners;  ///< x1, y1, x2, y2
        bool placed;
    } rows[] = {
        {"plain", {110, 90}, {150, 130}, {110, 90, 150, 130}, true},
        {"turned over", {150, 130}, {110, 90}, {110, 90, 150, 130}, true},
        {"from outside", {99, 90}, {150, 130}, {-1, -1, -1, -1}, false},
        {"ending right of the image", {110, 90}, {310, 130}, {110, 90, 299, 130}, true},
        {"ending just beside it", {110, 90}, {300, 200}, {110, 90, 300, 200}, true},
        {"ending left of it", {110, 90}, {50, 130}, {50, 90, 110, 130}, true},
        {"too small", {110, 90}, {112, 92}, {-1, -1, -1, -1}, false},
        {"the smallest", {110, 90}, {113, 93}, {110, 90, 113, 93}, true},
        {"thin but long enough", {110, 90}, {119, 91}, {110, 90, 119, 91}, true},
        {"without a width", {110, 90}, {110, 190}, {-1, -1, -1, -1}, false},
    };
    for (const auto& row : rows) {
        frame_.Reset();
        drag(row.from, row.to);
        EXPECT_EQ(corners(), row.corners) << row.name;
        EXPECT_EQ(frame_.placed, row.placed) << row.name;
    }
}

TEST_F(FrameToolTest, IsEditedByCornersEdgesAndInside) {
    const struct {
        const char* name;
        IntPoint from, to;
        IntRect corners;
        CursorId cursor;
    } rows[] = {
        {"top left", {150, 120}, {140, 110}, {140, 110, 220, 160}, CursorId::SizeNorthwestSoutheast},
        {"top right", {220, 120}, {230, 100}, {150, 100, 230, 160}, CursorId::SizeNortheastSouthwest},
        {"bottom right", {223, 163}, {230, 170}, {150, 120, 230, 170}, CursorId::SizeNorthwestSoutheast},
        {"bottom left", {150, 160}, {140, 170}, {140, 120, 220, 170}, CursorId::SizeNortheastSouthwest},
        {"top edge", {180, 123}, {185, 110}, {150, 110, 220, 160}, CursorId::SizeNorthSouth},
        {"right edge", {217, 140}, {250, 150}, {150, 120, 250, 160}, CursorId::SizeWestEast},
        {"bottom edge", {180, 157}, {180, 190}, {150, 120, 220, 190}, CursorId::SizeNorthSouth},
        {"left edge", {153, 140}, {120, 140}, {120, 120, 220, 160}, CursorId::SizeWestEast},
        {"inside", {180, 140}, {190, 145}, {160, 125, 230, 165}, CursorId::Move},
        {"moved against the corner", {180, 140}, {0, 0}, {100, 80, 170, 120}, CursorId::Move},
        {"moved against the other", {180, 140}, {390, 290}, {229, 159, 299, 199}, CursorId::Move},
        {"outside", {260, 180}, {270, 190}, {150, 120, 220, 160}, CursorId::Arrow},
        {"held at its own side",
         {220, 160},
         {390, 210},
         {150, 120, 299, 199},
         CursorId::SizeNorthwestSoutheast},
        {"but not at the other's", {180, 120}, {180, 250}, {150, 120, 220, 160}, CursorId::SizeNorthSouth},
        {"edge turned over", {218, 140}, {120, 140}, {120, 120, 150, 160}, CursorId::SizeWestEast},
    };
    for (const auto& row : rows) {
        frame_.Reset();
        drag({150, 120}, {220, 160});
        EXPECT_EQ(frame_.HitCursor(row.from), row.cursor) << row.name;
        drag(row.from, row.to);
        EXPECT_EQ(corners(), row.corners) << row.name;
        frame_.OnMouseDown(MouseButton::Left, {350, 20});
        EXPECT_FALSE(frame_.OnMouseMove({351, 21})) << row.name << ": nothing is grabbed any more";
    }
}

// An edge pulled over the other one stays with the mouse.
TEST_F(FrameToolTest, AHandleKeepsItsGrabWhenTheFrameTurnsOver) {
    drag({150, 120}, {220, 160});
    frame_.OnMouseDown(MouseButton::Left, {220, 160});
    for (int x = 219; x >= 120; --x) frame_.OnMouseMove({x, 160});
    EXPECT_EQ(corners(), (IntRect{120, 120, 150, 160}));
    frame_.OnMouseMove({130, 160});
    EXPECT_EQ(corners(), (IntRect{130, 120, 150, 160}));
}

TEST_F(FrameToolTest, StaysInTheWindow) {
    frame_.limit = {-50, -50, 500, 400};
    frame_.OnMouseDown(MouseButton::Left, {10, 10});
    EXPECT_TRUE(frame_.OnMouseMove({50, 60}));
    EXPECT_FALSE(frame_.OnMouseMove({-5, 60}));
    EXPECT_EQ(corners(), (IntRect{10, 10, 50, 60}));
    frame_.OnMouseUp({401, 60});
    EXPECT_EQ(corners(), (IntRect{10, 10, 50, 60}));
    EXPECT_TRUE(frame_.placed);
}

TEST_F(FrameToolTest, ShadesWhatItLeavesOut) {
    std::vector<Argb> pixels(400 * 300, 0xFF000000u);
    const MutablePixelView view{pixels.data(), 400, 300, 400};
    drag({150, 120}, {220, 160});
    frame_.Draw(view);
    const Argb shaded = 0xFFB4B4B4u;
    for (const IntPoint p :
         {IntPoint{100, 80}, {299, 80}, {100, 199}, {299, 199}, {149, 140}, {221, 140}, {180, 119}}) {
        EXPECT_EQ(view.at(p.x, p.y), shaded) << p.x << ", " << p.y;
    }
    for (const IntPoint p : {IntPoint{150, 120}, {220, 120}, {220, 160}, {150, 140}}) {
        EXPECT_EQ(view.at(p.x, p.y), 0xFFFFFFFFu) << p.x << ", " << p.y;
    }
    for (const IntPoint p : {IntPoint{151, 121}, {219, 159}, {99, 80}, {300, 100}, {180, 200}}) {
        EXPECT_EQ(view.at(p.x, p.y), 0xFF000000u) << p.x << ", " << p.y;
    }
}

TEST(Crop, CutsTheImageToTheFrame) {
    TestControl control;
    control.call("NewImage", {200, 100});  // shown at (101, 101)
    control.document().lockCurrent().at(30, 20) = 0xFF112233u;
    control.put("PaintStatus", 17);
    control.drag({{131, 121}, {170, 150}});
    control.call("Accept");
    EXPECT_EQ(control.document().size(), (IntSize{40, 30}));
    EXPECT_EQ(control.document().currentPixels().at(0, 0), 0xFF112233u);
    EXPECT_EQ(control.control().tools.crop.limit, control.document().imageRect());
    EXPECT_TRUE(control.control().tools.crop.isUnset());
    control.call("Accept");
    control.call("Undo");
    EXPECT_EQ(control.document().size(), (IntSize{200, 100}));
    EXPECT_FALSE(control.flag("UndoEnable"));

    control.drag({{110, 110}, {113, 113}});
    control.call("Accept");
    EXPECT_EQ(control.document().size(), (IntSize{4, 4}));
}

TEST(Crop, FramesAreLaidWhereThePictureIs) {
    TestControl control;
    control.call("NewImage", {500, 200});
    control.call("ActialSize");
    const auto expectCurrent = [&control](const char* after) {
        EXPECT_EQ(control.control().tools.crop.limit, control.document().imageRect()) << after;
    };
    control.control().onSize(600, 500);
    expectCurrent("the window grew");
    control.call("RotateFlip", {1});
    expectCurrent("a quarter turn");
    control.put("PaintStatus", 17);
    control.drag({{300, 20}, {340, 480}});
    control.call("Accept");
    EXPECT_EQ(control.document().size(), (IntSize{41, 461})) << "where the picture was lying is no bound";

    control.put("PaintStatus", 0);
    control.control().onSize(400, 300);
    const IntRect before = control.document().imageRect();
    control.drag({{200, 150}, {200, 120}, {200, 170}});
    ASSERT_NE(control.document().imageRect(), before);
    expectCurrent("it was dragged by hand");
}

TEST(Selection, CrawlsAndGoesToTheClipboard) {
    TestControl control;
    control.put("BitmapBackColor", ColorValue{0x000000FF});
    control.call("NewImage", {60, 40});
    control.document().lockCurrent().at(7, 5) = 0xFF112233u;
    control.put("BitmapBackColor", ColorValue{0x0000FF00});
    EXPECT_FALSE(control.flag("CopyCutAvailable"));
    control.call("SelectAll");
    EXPECT_EQ(control.number("PaintStatus"), 18);
    EXPECT_FALSE(control.flag("CopyCutAvailable")) << "nothing was laid out by hand";
    control.call("Copy");
    EXPECT_TRUE(control.flag("IsClipboardAvailable"));
    EXPECT_FALSE(control.flag("Modified"));

    control.put("PaintStatus", 18);
    const IntPoint corner = control.control().toWindow({0, 0});
    control.drag({{corner.x + 5, corner.y + 5}, {corner.x + 20, corner.y + 15}});
    EXPECT_TRUE(control.flag("CopyCutAvailable"));
    const std::vector<Argb> first(
        control.window().picture().pixels,
        control.window().picture().pixels + control.window().picture().pixelCount());
    control.tick();
    EXPECT_NE(0, std::memcmp(first.data(), control.window().picture().pixels, first.size() * 4));
    control.tick(8);
    EXPECT_EQ(0, std::memcmp(first.data(), control.window().picture().pixels, first.size() * 4))
        << "dash and gap are nine pixels together";

    const PixelSurface before = *control.document().currentSurface();
    control.redraws();
    control.call("Cut");
    EXPECT_EQ(control.redraws(), 0);
    EXPECT_FALSE(control.flag("CopyCutAvailable"));
    const IntPoint from = control.control().toImage({corner.x + 5, corner.y + 5});
    EXPECT_EQ(control.document().currentPixels().at(from.x, from.y), 0xFF00FF00u);
    EXPECT_EQ(control.document().currentPixels().at(from.x + 15, from.y + 10), 0xFF00FF00u);
    EXPECT_EQ(control.document().currentPixels().at(from.x + 16, from.y + 10), 0xFFFF0000u);
    control.call("Undo");
    EXPECT_TRUE(control.flag("RedoEnable"));
    EXPECT_EQ(0, std::memcmp(before.read().pixels, control.document().currentPixels().pixels, 60 * 40 * 4));
}

// All of an opaque picture, copied, pasted and accepted, gives the same pixels back.
TEST(Selection, TheWholePictureComesBackFromTheClipboard) {
    TestControl control;
    Value::Bytes bytes(60 * 40 * 4);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = i % 4 == 3 ? 255 : std::uint8_t(i * 7 + i / 240);
    control.call("LoadFromImageArray", {bytes, 60, 40});
    const PixelSurface before = *control.document().currentSurface();
    control.call("SelectAll");
    control.call("Copy");
    control.call("Invert");
    control.call("Paste");
    EXPECT_EQ(control.number("PaintStatus"), 16);
    // The picture is shown two pixels inside its box, which starts on the image's first pixel.
    control.control().tools.imageStamp.box.x -= 2;
    control.control().tools.imageStamp.box.y -= 2;
    const IntPoint at = control.control().toImage(
        {control.control().tools.imageStamp.box.x, control.control().tools.imageStamp.box.y});
    ASSERT_EQ(at, (IntPoint{-2, -2}));
    control.call("Accept");
    EXPECT_EQ(0, std::memcmp(before.read().pixels, control.document().currentPixels().pixels, 60 * 40 * 4));
}

TEST(RedEye, HalvesTheRedOfThePupil) {
    std::vector<Argb> pixels(40 * 40, 0xFF808080u);
    const MutablePixelView image{pixels.data(), 40, 40, 40};
    for (int y = 18; y <= 22; ++y) {
        for (int x = 16; x <= 20; ++x) image.at(x, y) = 0xFFC83C28u;
    }
    image.at(18, 20) = 0x80F0F0F0u;  // the light in the eye
    image.at(2, 2) = 0xFFC83C28u;    // red, but in a corner of the frame
    correctRedEye(image, {0, 0, 36, 40});
    EXPECT_EQ(image.at(16, 20), 0xFF643C28u);
    EXPECT_EQ(image.at(18, 18), 0xFF643C28u);
    EXPECT_EQ(image.at(18, 20), 0x80F0F0F0u);
    EXPECT_EQ(image.at(15, 20), 0xFF408080u) << "a pixel around the red ones";
    EXPECT_EQ(image.at(14, 20), 0xFF808080u);
    EXPECT_EQ(image.at(2, 2), 0xFFC83C28u);

    const std::vector<Argb> before = pixels;
    for (const IntRect area :
         {IntRect{24, 24, 12, 12}, {-2000000, 5, 100, 100}, {30, 30, 1 << 28, 1 << 28}, {6, 30, 4, 4}}) {
        correctRedEye(image, area);
        EXPECT_EQ(pixels, before);
    }

    TestControl control;
    control.call("NewImage", {200, 100});
    control.put("PaintStatus", 19);
    control.drag({{10, 10}, {50, 50}});
    EXPECT_FALSE(control.flag("Modified")) << "the press was outside the image";
    control.drag({{110, 110}, {150, 150}});
    EXPECT_TRUE(control.flag("UndoEnable"));
    EXPECT_TRUE(control.control().tools.redEye.isUnset());
}

}  // namespace
}  // namespace orvane
