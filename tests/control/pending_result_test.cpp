// What a host asks about a result that is placed and not drawn yet, and a text that is typed.
#include <gtest/gtest.h>

#include <algorithm>

#include <orvane/headless_clipboard.h>
#include <orvane/headless_window.h>
#include <orvane/vistrel.h>

namespace orvane {
namespace {

class PendingResult : public testing::Test {
 protected:
    PendingResult() : control_(window_) {
        control_.onSize(400, 300);
        control_.NewImage(200, 100);
    }
    void click(IntPoint at) {
        control_.onLeftDown(at.x, at.y);
        control_.onLeftUp(at.x, at.y);
    }
    void drag(IntPoint from, IntPoint to) {
        control_.onLeftDown(from.x, from.y);
        control_.onMouseMove(to.x, to.y, {true, false});
        control_.onLeftUp(to.x, to.y);
    }
    [[nodiscard]] bool hasUndo() { return control_.get_UndoEnable(); }

    HeadlessWindow window_{400, 300};
    Vistrel control_;
};

TEST_F(PendingResult, IsThereUntilItIsDrawnOrDropped) {
    constexpr int kLine = 1, kPolyline = 2, kPencil = 3, kRectangle = 11, kCrop = 17, kSelection = 18;
    EXPECT_FALSE(control_.holdsResult());
    for (const int mode : {kLine, kRectangle}) {
        control_.put_PaintStatus(mode);
        EXPECT_FALSE(control_.holdsResult()) << mode;
        drag({120, 110}, {180, 160});
        EXPECT_TRUE(control_.holdsResult()) << mode;
        EXPECT_FALSE(hasUndo()) << mode;
        control_.Accept();
        EXPECT_FALSE(control_.holdsResult()) << mode;
        EXPECT_TRUE(hasUndo()) << mode;
        control_.Undo();
    }
    control_.put_PaintStatus(kPolyline);
    click({120, 110});
    EXPECT_FALSE(control_.holdsResult()) << "one point is no line";
    click({180, 160});
    EXPECT_TRUE(control_.holdsResult());
    control_.put_PaintStatus(kPolyline);
    EXPECT_FALSE(control_.holdsResult());

    control_.DrawString(u"words");
    EXPECT_TRUE(control_.holdsResult());
    control_.DrawString(u"");
    EXPECT_FALSE(control_.holdsResult());
    for (const int mode : {kPencil, kCrop, kSelection}) {
        control_.put_PaintStatus(mode);
        drag({120, 110}, {180, 160});
        EXPECT_FALSE(control_.holdsResult()) << mode;
    }
    control_.Empty();
    EXPECT_FALSE(control_.holdsResult());
}

TEST_F(PendingResult, ATypedTextKeepsItsPlace) {
    const auto typedAfterADrag = [this](std::initializer_list<const char16_t*> later) {
        control_.typeText(u"wor");
        drag({104, 108}, {154, 138});
        for (const char16_t* words : later) control_.typeText(words);
        control_.Accept();
        const auto pixels = control_.GetImageArray();
        control_.Undo();
        return pixels;
    };
    const auto blank = control_.GetImageArray();
    const auto expected = typedAfterADrag({u"word"});
    EXPECT_NE(expected, blank);
    EXPECT_EQ(typedAfterADrag({u"wo", u"", u"w", u"word"}), expected);
    EXPECT_NE(typedAfterADrag({u"wo"}), expected);
}

TEST_F(PendingResult, ATypedTextBeginsWhereItIsSeen) {
    constexpr int kWidth = 1000, kHeight = 900;
    control_.NewImage(kWidth, kHeight);
    control_.ActialSize();
    const IntPoint corner = control_.imagePointAt({0, 0});
    const auto before = control_.GetImageArray();
    control_.typeText(u"Here");
    control_.Accept();
    const auto after = control_.GetImageArray();
    const auto changed =
        std::size_t(std::mismatch(after.begin(), after.end(), before.begin()).first - after.begin());
    ASSERT_LT(changed, after.size());
    EXPECT_GE(int(changed / 4 / kWidth), corner.y);
    EXPECT_LT(int(changed / 4 / kWidth), corner.y + 60);
    EXPECT_GE(int(changed / 4 % kWidth), corner.x);
}

/// Another program, which is waited for: meanwhile the host drops the picture.
class SlowOwner final : public ClipboardServices {
 public:
    explicit SlowOwner(Vistrel*& control) : control_(control) {}
    [[nodiscard]] bool offersBitmap() const override { return copied_.offersBitmap(); }
    [[nodiscard]] std::optional<std::vector<std::uint8_t>> readBitmap() override {
        control_->Empty();
        return copied_.readBitmap();
    }
    bool writeBitmap(std::vector<std::uint8_t> block) override {
        return copied_.writeBitmap(std::move(block));
    }

 private:
    Vistrel*& control_;
    HeadlessClipboard copied_;
};

TEST(Paste, PlacesNothingWhereThePictureHasGoneMeanwhile) {
    Vistrel* control = nullptr;
    HeadlessWindow window(400, 300);
    SlowOwner clipboard(control);
    Vistrel host(window, &clipboard);
    control = &host;
    host.onSize(400, 300);
    host.NewImage(20, 20);
    host.SelectAll();
    host.Copy();
    host.put_PaintStatus(0);
    host.Paste();
    EXPECT_TRUE(host.get_IsEmpty());
    EXPECT_EQ(host.get_PaintStatus(), 0);
}

}  // namespace
}  // namespace orvane
