#include "view/rotation_bar.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "view/rounded_panel.h"
#include "view/slider_thumb.h"

namespace orvane {
namespace {

TEST(AngleText, HasNoLeadingZeroAndAHyphenBelowZero) {
    const struct {
        int angle;
        const char16_t* text;
    } rows[] = {{-45, u"-45"}, {-10, u"-10"}, {-9, u"-9"}, {0, u"0"}, {7, u"7"}, {10, u"10"}, {45, u"45"}};
    for (const auto& row : rows) EXPECT_EQ(angleText(row.angle), row.text) << row.angle;
}

/// In a client area of 300 lines the bar begins at line 250; the slider's track runs from 108 to 333.
class Bar : public testing::Test {
 protected:
    Bar() { bar.layout({640, 300}); }
    RotationBar bar;
};

TEST_F(Bar, TheThumbIsGrabbedOnItsPictureOnly) {
    ASSERT_EQ(sliderThumb().width, 14);
    ASSERT_EQ(sliderThumb().height, 23);
    // At value 0 the thumb lies at trunc(225 / 90.0 * 45) - 7 + 108 = 213.
    const struct {
        IntPoint point;
        bool grabbed;
    } rows[] = {{{213, 252}, true},  {{226, 274}, true},  {{212, 260}, false},
                {{227, 260}, false}, {{220, 251}, false}, {{220, 275}, false}};
    for (const auto& row : rows) {
        EXPECT_EQ(bar.press(row.point), row.grabbed) << row.point.x << ", " << row.point.y;
        EXPECT_EQ(bar.drag({333, 0}), row.grabbed);
        bar.release();
        bar.reset();
        EXPECT_FALSE(bar.drag({333, 0}));
        EXPECT_EQ(bar.angle(), 0);
    }
}

TEST_F(Bar, AnglesAreTruncatedAndStayWithinTheTrack) {
    const struct {
        int x, angle;
    } rows[] = {{108, -45}, {107, -45}, {-500, -45}, {109, -44}, {110, -44}, {111, -43},
                {217, -1},  {218, -1},  {219, 0},    {220, 0},   {222, 0},   {223, 1},
                {332, 44},  {333, 45},  {334, 45},   {9000, 45}};
    ASSERT_TRUE(bar.press({220, 260}));
    for (const auto& row : rows) {
        EXPECT_TRUE(bar.drag({row.x, -77}));
        EXPECT_EQ(bar.angle(), row.angle) << row.x;
    }
    bar.release();
    EXPECT_TRUE(bar.press({326, 252})) << "the thumb is at the right end now";
    EXPECT_FALSE(bar.press({325, 252}));
}

TEST_F(Bar, ButtonsLightUpOneAtATime) {
    constexpr IntPoint kApply{360, 250}, kCancel{489, 275}, kNowhere{425, 260};
    EXPECT_TRUE(bar.applyHit(kApply));
    EXPECT_FALSE(bar.applyHit({420, 260}));
    EXPECT_TRUE(bar.cancelHit(kCancel));
    EXPECT_FALSE(bar.cancelHit({489, 276}));
    const struct {
        IntPoint mouse;
        bool changed;
    } rows[] = {
        {kNowhere, false}, {kApply, true},   {kApply, false},   {kNowhere, true}, {kCancel, true},
        {kApply, true},    {kApply, true},   {kApply, false},   {kCancel, true},  {kCancel, true},
        {kCancel, false},  {kNowhere, true}, {kNowhere, false},
    };
    for (const auto& row : rows) EXPECT_EQ(bar.hover(row.mouse), row.changed) << &row - rows;
}

TEST_F(Bar, SitsAtTheBottomOfTheWindow) {
    const Argb kBackground = 0xFF123456u;
    std::vector<Argb> pixels(640 * 300, kBackground);
    bar.draw({pixels.data(), 640, 300, 640});
    const auto at = [&](int x, int y) { return pixels[std::size_t(y * 640 + x)]; };
    // Outlines in the middle of each side, translucent panels between them.
    for (const IntRect panel :
         {IntRect{50, 250, 40, 26}, {100, 250, 240, 26}, {360, 250, 60, 26}, {430, 250, 60, 26}}) {
        EXPECT_EQ(at(panel.x + 20, panel.y), kPanelInk);
        EXPECT_EQ(at(panel.x + 20, panel.bottom()), kPanelInk);
        EXPECT_EQ(at(panel.x, panel.y + 13), kPanelInk);
        EXPECT_EQ(at(panel.right(), panel.y + 13), kPanelInk);
        EXPECT_EQ(at(panel.x + 6, panel.y + 22), 0xFF0A1C2Eu);
        EXPECT_EQ(at(panel.x - 3, panel.y + 13), kBackground);
    }
    EXPECT_EQ(at(220, 263), sliderThumb().at(7, 11));
    EXPECT_EQ(at(213, 252), 0xFF0A1C2Eu) << "the thumb's corners let the panel through";
    for (int x = 0; x < 640; ++x) ASSERT_EQ(at(x, 247), kBackground);

    const std::vector<Argb> before = pixels;
    bar.hover({365, 255});
    std::fill(pixels.begin(), pixels.end(), kBackground);
    bar.draw({pixels.data(), 640, 300, 640});
    EXPECT_EQ(at(366, 272), 0xFF394B5Du) << "grey under the mouse";
    bar.hover({0, 0});
    std::fill(pixels.begin(), pixels.end(), kBackground);
    bar.draw({pixels.data(), 640, 300, 640});
    EXPECT_EQ(pixels, before);
}

/// Four pieces and four quarters are one even area: no seam, no pixel painted twice.
TEST(RoundedPanel, IsFilledEvenly) {
    std::vector<Argb> pixels(60 * 40, 0xFFFFFFFFu);
    const MutablePixelView view{pixels.data(), 60, 40, 60};
    drawRoundedPanel(view, {5, 5, 45, 27}, 0x78000000u);
    for (int y = 7; y < 31; ++y) {
        for (int x = 7; x < 49; ++x) {
            const int dx = x < 11 ? 11 - x : x > 44 ? x - 44 : 0, dy = y < 11 ? 11 - y : y > 26 ? y - 26 : 0;
            if (dx * dx + dy * dy >= 12) continue;  // near the outline
            ASSERT_EQ(view.at(x, y), 0xFF878787u) << x << ", " << y;
        }
    }
    EXPECT_EQ(view.at(5, 5), 0xFFFFFFFFu) << "outside the round corner";
    for (int x = 11; x <= 44; ++x) {
        EXPECT_EQ(view.at(x, 5), kPanelInk) << "a seam at " << x;
        EXPECT_EQ(view.at(x, 32), kPanelInk) << "a seam at " << x;
    }
}

}  // namespace
}  // namespace orvane
