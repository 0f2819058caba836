#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "control/paint_mode.h"
#include "support/recording_sink.h"
#include "support/test_control.h"
#include "view/view_mapping.h"

namespace orvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A picture of 1000 x 500 in a window of 300 x 200: the thumbnail of 108 x 54 lies at (181, 115), the part
/// in view on it from about (219, 131) on, 32 x 21.
class Overflowing : public testing::Test {
 protected:
    Overflowing() : control(300, 200) {
        control.control().sinks.connect(sink);
        control.call("NewImage", {1000, 500});
        control.redraws();
    }
    [[nodiscard]] std::vector<Argb> shown() {
        const PixelView view = control.window().picture();
        return std::vector<Argb>(view.pixels, view.pixels + view.pixelCount());
    }
    /// Whether the last redraw shows the panel: its close button is red.
    [[nodiscard]] bool showsPanel() { return control.window().picture().at(283, 102) == 0xFF8B0000u; }

    static constexpr IntPoint kClose{285, 105}, kGrip{234, 141}, kThumbnail{185, 118};
    TestControl control;
    RecordingSink sink;
};

TEST_F(Overflowing, ShowsThePanelWhileTheImageOverflows) {
    EXPECT_TRUE(showsPanel());
    control.put("PaintStatus", PaintMode::Rotation);
    EXPECT_FALSE(showsPanel());
    control.put("PaintStatus", PaintMode::Rectangle);
    EXPECT_TRUE(showsPanel());
    control.put("ScrollWindowVisible", false);
    EXPECT_FALSE(showsPanel());
    control.put("ScrollWindowVisible", true);
    EXPECT_TRUE(showsPanel());
    control.call("ZoomToFit");
    EXPECT_FALSE(showsPanel());
    control.call("Empty");
    EXPECT_FALSE(showsPanel());
}

TEST_F(Overflowing, DraggingTheRectangleScrollsTheView) {
    control.press(kGrip.x, kGrip.y);
    EXPECT_EQ(control.redraws(), 1);
    EXPECT_FALSE(control.window().isCaptured()) << "no drag of the view begins";
    control.move(kGrip.x - 10, kGrip.y);
    EXPECT_EQ(control.redraws(), 1);
    const IntPoint target = control.control().scrollWindow.targetPoint();
    EXPECT_EQ(control.document().view.viewCentreX, 500 - target.x);
    EXPECT_EQ(control.document().view.viewCentreY, 250 - target.y);
    EXPECT_NEAR(windowToImage(control.document(), 1.0, {0, 0}).x, target.x, 2);
    control.move(-500, -500);
    EXPECT_EQ(control.control().scrollWindow.targetPoint(), (IntPoint{0, 0}));
    control.release(-500, -500);
    EXPECT_EQ(control.redraws(), 1) << "the move; the release goes no further";
    control.move(kGrip.x, kGrip.y);
    EXPECT_EQ(control.redraws(), 0);
}

/// The rectangle settles where the view really is, so that taking it up again moves nothing.
TEST_F(Overflowing, ReleasedItShowsTheViewAgain) {
    control.drag({kGrip, {kGrip.x - 10, kGrip.y - 4}});
    control.control().refresh();
    const auto before = shown();
    control.control().refresh();
    EXPECT_EQ(shown(), before);
}

TEST_F(Overflowing, TheCloseButtonFiresAtThePressAndHidesAtTheRelease) {
    control.press(kClose.x, kClose.y);
    EXPECT_THAT(sink.take(), ElementsAre("OnHitCloseScrollWindow"));
    EXPECT_TRUE(control.flag("ScrollWindowVisible"));
    EXPECT_EQ(control.redraws(), 0);
    control.release(kClose.x, kClose.y);
    EXPECT_FALSE(control.flag("ScrollWindowVisible"));
    EXPECT_EQ(control.redraws(), 1);
    EXPECT_FALSE(showsPanel());
    control.press(kClose.x, kClose.y);
    EXPECT_THAT(sink.take(), IsEmpty()) << "the panel is gone";
    EXPECT_TRUE(control.window().isCaptured()) << "the press drags the view instead";
}

TEST_F(Overflowing, PressesBesideTheRectangleReachTheMode) {
    control.put("PaintStatus", PaintMode::Rectangle);
    control.press(kThumbnail.x, kThumbnail.y).move(150, 50).release(150, 50);
    EXPECT_TRUE(control.control().tools.rectangle.placed);
    control.put("PaintStatus", PaintMode::Pencil);
    control.press(kGrip.x, kGrip.y).move(kGrip.x - 5, kGrip.y).release(kGrip.x - 5, kGrip.y);
    EXPECT_FALSE(control.flag("Modified")) << "the panel takes gestures that begin on the rectangle";
}

TEST_F(Overflowing, OverTheThumbnailTheMouseIsFree) {
    control.put("PaintStatus", PaintMode::Brush);
    control.move(50, 50);
    EXPECT_TRUE(control.window().isCaptured());
    control.move(kThumbnail.x, kThumbnail.y);
    EXPECT_FALSE(control.window().isCaptured());
    EXPECT_EQ(control.window().cursor(), CursorId::Brush) << "the cursor stays as it was";
}

TEST_F(Overflowing, SelectionsCrawlUnderneath) {
    control.put("PaintStatus", PaintMode::Selection);
    control.drag({{20, 20}, {120, 90}});
    const float offset = control.control().tools.selection.dashOffset;
    control.redraws();
    const auto before = shown();
    control.tick(3);
    EXPECT_EQ(control.redraws(), 3);
    EXPECT_EQ(control.control().tools.selection.dashOffset, offset - 3);
    EXPECT_NE(shown(), before);
    EXPECT_TRUE(showsPanel());
}

/// The frames of modes 17 to 19, from press to picture.
TEST(Frames, FollowTheMouseAndEndInThePicture) {
    TestControl control(300, 200);
    control.call("NewImage", {100, 80});  // shown at (101, 61)
    control.put("PaintStatus", PaintMode::Crop);
    EXPECT_EQ(control.control().tools.crop.limit, control.document().imageRect());
    control.press(50, 50);
    EXPECT_FALSE(control.window().isCaptured()) << "no frame begins beside the image";
    control.release(50, 50);
    control.press(111, 71);
    EXPECT_TRUE(control.window().isCaptured());
    control.move(140, 100).release(140, 100);
    EXPECT_FALSE(control.window().isCaptured());
    control.move(111, 71);
    EXPECT_EQ(control.window().cursor(), CursorId::SizeNorthwestSoutheast);
    control.redraws();
    control.call("Accept");
    EXPECT_EQ(control.document().size(), (IntSize{30, 30}));
    EXPECT_EQ(control.control().tools.crop.limit, control.document().imageRect());
    EXPECT_EQ(control.redraws(), 1);
    control.call("Undo");

    control.put("PaintStatus", PaintMode::RedEye);
    control.document().lockCurrent().at(25, 25) = 0xFFC81E14u;
    control.drag({{111, 71}, {141, 101}});
    EXPECT_EQ(control.document().currentPixels().at(25, 25), 0xFF641E14u);
    EXPECT_FALSE(control.control().tools.redEye.holdsFrame());
    control.put("PaintStatus", PaintMode::Selection);
    control.drag({{111, 71}, {141, 101}});
    control.call("Accept");
    EXPECT_TRUE(control.control().tools.selection.placed) << "a selection is never committed";
    control.call("ZoomIn");
    EXPECT_NE(control.control().tools.selection.frame(), (IntRect{111, 71, 30, 30}))
        << "it stays on its pixels";
}

}  // namespace
}  // namespace orvane
