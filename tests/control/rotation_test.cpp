#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "control/paint_mode.h"
#include "support/pictures.h"
#include "support/recording_sink.h"
#include "support/test_control.h"

namespace orvane {
namespace {

using test::pictureOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kSide = 120;

/// A control of 600 x 400 in free rotation. The bar begins at line 350; the thumb lies at (213, 352).
class Rotation : public testing::Test {
 protected:
    Rotation() : control(600, 400), picture(test::randomPicture(kSide * kSide, 3u)) {
        for (Argb& p : picture) p |= 0xFF000000u;
        control.control().sinks.connect(sink);
        test::loadPicture(control.document(), picture, kSide, kSide);
        control.document().modified = false;
        enter();
    }
    void enter() {
        control.put("PaintStatus", PaintMode::Rotation);
        control.redraws();
    }
    [[nodiscard]] bool isPreviewing() { return control.document().rotationPreview; }
    [[nodiscard]] float angle() { return control.document().rotationAngle; }
    [[nodiscard]] std::vector<Argb> shown() {
        const PixelView view = control.window().picture();
        return std::vector<Argb>(view.pixels, view.pixels + view.pixelCount());
    }

    static constexpr IntPoint kThumb{220, 360}, kApply{380, 360}, kCancel{450, 360};
    TestControl control;
    RecordingSink sink;
    std::vector<Argb> picture;
};

TEST_F(Rotation, DraggingTheThumbTurnsThePreviewOnly) {
    const auto before = shown();
    EXPECT_TRUE(isPreviewing());
    EXPECT_EQ(angle(), 0.0f);
    control.press(kThumb.x, kThumb.y);
    EXPECT_EQ(control.redraws(), 0);
    control.move(295, 500);
    EXPECT_EQ(angle(), 29.0f);
    EXPECT_EQ(control.redraws(), 1);
    EXPECT_NE(shown(), before);
    control.move(-50, 360);
    EXPECT_EQ(angle(), -45.0f);
    EXPECT_EQ(control.redraws(), 1);
    control.release(-50, 360);
    EXPECT_EQ(control.redraws(), 1);
    control.move(300, 360);
    EXPECT_EQ(angle(), -45.0f) << "let go";
    EXPECT_EQ(control.redraws(), 0);
    EXPECT_EQ(pictureOf(control.document()), picture);
    EXPECT_FALSE(control.flag("Modified"));

    control.press(300, 360).move(320, 360).release(320, 360);
    EXPECT_EQ(angle(), -45.0f) << "pressed beside the thumb";
    EXPECT_THAT(sink.take(), IsEmpty());
}

TEST_F(Rotation, ApplyTurnsThePictureAsOneStep) {
    control.drag({kThumb, {295, 360}});
    control.redraws();
    control.press(kApply.x, kApply.y);
    EXPECT_THAT(sink.take(), ElementsAre("OnHitApplyRotate"));
    EXPECT_EQ(control.number("PaintStatus"), 0);
    EXPECT_FALSE(isPreviewing());
    EXPECT_EQ(control.redraws(), 1);
    control.release(kApply.x, kApply.y);
    EXPECT_EQ(control.redraws(), 0);
    EXPECT_NE(pictureOf(control.document()), picture);
    EXPECT_TRUE(control.flag("Modified"));
    control.call("Undo");
    EXPECT_EQ(pictureOf(control.document()), picture);
    EXPECT_FALSE(control.flag("UndoEnable"));
}

TEST_F(Rotation, ApplyAtAngleZeroIsAStepToo) {
    control.press(kApply.x, kApply.y);
    EXPECT_EQ(pictureOf(control.document()), picture);
    EXPECT_TRUE(control.flag("UndoEnable"));
    EXPECT_THAT(sink.take(), ElementsAre("OnHitApplyRotate"));
}

TEST_F(Rotation, CancelChangesNothingAndTheNextEntryStartsAtZero) {
    const auto before = shown();
    control.drag({kThumb, {295, 360}});
    control.redraws();
    control.press(kCancel.x, kCancel.y);
    EXPECT_THAT(sink.take(), ElementsAre("OnHitCancelRotate"));
    EXPECT_EQ(control.number("PaintStatus"), 0);
    EXPECT_EQ(control.redraws(), 1);
    EXPECT_FALSE(control.flag("UndoEnable"));
    EXPECT_FALSE(control.flag("Modified"));
    enter();
    EXPECT_EQ(angle(), 0.0f);
    control.move(0, 0);
    EXPECT_EQ(shown(), before);
}

TEST_F(Rotation, OtherModesEndItSilently) {
    control.drag({kThumb, {295, 360}});
    control.put("PaintStatus", PaintMode::Rectangle);
    EXPECT_FALSE(isPreviewing());
    EXPECT_THAT(sink.take(), IsEmpty());
    control.press(kApply.x, kApply.y).release(kApply.x, kApply.y);
    EXPECT_THAT(sink.take(), IsEmpty()) << "the bar is gone";
    EXPECT_EQ(pictureOf(control.document()), picture);
}

TEST_F(Rotation, HoveringButtonsRedraws) {
    control.move(kApply.x, kApply.y).move(kApply.x + 1, kApply.y);
    EXPECT_EQ(control.redraws(), 1);
    control.move(kCancel.x, kCancel.y).move(kCancel.x, kCancel.y).move(kCancel.x, kCancel.y);
    EXPECT_EQ(control.redraws(), 2) << "first one fades, then the other lights up";
    control.move(10, 10);
    EXPECT_EQ(control.redraws(), 1);
}

/// A picture that overflows is shown centred, and the bar follows the window.
TEST_F(Rotation, CentresTheViewAndFollowsAResize) {
    control.put("PaintStatus", PaintMode::None);
    control.document().view.viewCentreX = 77;
    enter();
    EXPECT_EQ(control.document().view.viewCentreX, 300);
    control.control().onSize(600, 300);
    control.press(kCancel.x, kCancel.y);
    EXPECT_EQ(control.number("PaintStatus"), PaintMode::Rotation);
    control.release(kCancel.x, kCancel.y).press(kCancel.x, 260);
    EXPECT_EQ(control.number("PaintStatus"), PaintMode::None);
}

}  // namespace
}  // namespace orvane
