#include "tools/spray_tool.h"

#include <climits>
#include <iterator>

#include "support/failing_allocator.h"
#include "tools/freehand_fixture.h"

namespace orvane {
namespace {

using test::Canvas;
using test::samePoint;

class Spray : public test::Freehand {
 protected:
    /// The pending dots in order; they are lost.
    std::vector<IntPoint> takeDots() {
        std::vector<IntPoint> dots;
        spray.commit(document, [&](IntPoint point) {
            dots.push_back(point);
            return point;
        });
        return dots;
    }
    void press(IntPoint mouse) { spray.OnMouseDown(MouseButton::Left, mouse); }

    SprayTool spray{pen, brush, freehand};
};

TEST_F(Spray, BurstFillsTheDiscBesideTheMouse) {
    const struct {
        int radius;
        std::size_t dots;
    } rows[] = {{8, 6}, {16, 25}, {50, 245}};
    for (const auto& row : rows) {
        freehand.sprayRadius = row.radius;
        press({100, 200});
        IntRect reached{1000, 1000, 0, 0};
        for (int burst = 0; burst < 400; ++burst) {
            spray.burst();
            const std::vector<IntPoint> dots = takeDots();
            ASSERT_EQ(dots.size(), row.dots);
            for (const IntPoint dot : dots) {
                const int x = dot.x - 105, y = dot.y - 209;
                ASSERT_LE(x * x + y * y, row.radius * row.radius) << dot.x << ", " << dot.y;
                reached = {std::min(reached.x, x), std::min(reached.y, y), std::max(reached.width, x),
                           std::max(reached.height, y)};
            }
        }
        const int most = row.radius * 8 / 10;
        EXPECT_LT(std::max(reached.x, reached.y), -most) << "radius " << row.radius;
        EXPECT_GT(std::min(reached.width, reached.height), most) << "radius " << row.radius;
    }
}

TEST_F(Spray, CentreIsThereWhileTheButtonIsHeld) {
    EXPECT_FALSE(spray.hasCentre());
    press({0, 0});
    EXPECT_TRUE(spray.hasCentre());
    spray.OnMouseMove({-1, 40});
    EXPECT_FALSE(spray.hasCentre()) << "left of the window";
    spray.OnMouseMove({30, -5});
    EXPECT_FALSE(spray.hasCentre()) << "above the window";
    spray.OnMouseMove({30, 40});
    EXPECT_TRUE(spray.hasCentre());
    spray.OnMouseUp({30, 40});
    EXPECT_FALSE(spray.hasCentre());
}

TEST_F(Spray, OverlayShowsOpaqueDots) {
    pen.colour = 0x40112233u;
    press({20, 15});
    spray.burst();
    Canvas overlay;
    spray.Draw(overlay.view());
    Canvas expected;
    for (const IntPoint dot : takeDots()) expected.view().at(dot.x, dot.y) = 0xFF112233u;
    EXPECT_EQ(overlay, expected);
    EXPECT_NE(expected, Canvas());
}

TEST_F(Spray, DotsBlendIntoThePixelsAndMakeThemOpaque) {
    const struct {
        Argb colour, old, blended;
    } rows[] = {
        {0xFF102030u, 0x00FFFFFFu, 0xFF102030u},
        {0x80FF0000u, 0xFF0000FFu, 0xFF80007Fu},  // 128.0 and 127.0 - 0.0000...: truncated
        {0x80000000u, 0xFFFFFFFFu, 0xFF7F7F7Fu},
        {0x80FFFFFFu, 0x00000000u, 0xFF808080u},  // nothing visible counts with its colour, black
        {0x80404040u, 0x40C0C0C0u, 0xFF7F7F7Fu},
        {0x00FFFFFFu, 0x80123456u, 0xFF123456u},
        {0x01FFFFFFu, 0xFF00FE80u, 0xFF01FE80u},
        {0xFE000000u, 0xFFFF0180u, 0xFF010000u},
    };
    freehand.sprayRadius = 8;
    for (const auto& row : rows) {
        pen.colour = row.colour;
        press({20, 15});
        spray.burst();
        document.bitmapBackColor = row.old;
        document.newImage(60, 50);
        // One dot inside, the others beyond each edge.
        const IntPoint targets[] = {{-1, 3}, {60, 3}, {3, -1}, {3, 50}, {59, 49}, {INT_MAX, INT_MIN}};
        std::size_t dot = 0;
        spray.commit(document, [&](IntPoint) { return targets[dot++]; });
        EXPECT_EQ(dot, std::size(targets));
        Canvas expected(60, 50, row.old);
        expected.view().at(59, 49) = row.blended;
        EXPECT_EQ(image(), expected) << std::hex << row.colour << " into " << row.old << " gave "
                                     << image().pixels.back();
    }
}

TEST_F(Spray, EveryReleaseIsOneStepAndEmptiesTheCan) {
    for (const int bursts : {0, 1, 5, 0}) {
        press({20, 15});
        for (int i = 0; i < bursts; ++i) spray.burst();
        spray.OnMouseUp({20, 15});
        const int before = steps();
        spray.commit(document, samePoint);
        EXPECT_EQ(steps(), before + 1) << bursts << " bursts";
        Canvas overlay;
        spray.Draw(overlay.view());
        EXPECT_EQ(overlay, Canvas()) << "no dots are left";
    }
    ImageDocument none;
    spray.burst();
    spray.commit(none, samePoint);
    EXPECT_TRUE(none.isEmpty());
}

TEST_F(Spray, WithoutMemoryDotsAreDropped) {
    freehand.sprayRadius = 50;
    press({INT_MAX, INT_MIN});
    FailingAllocator::arm(5, 1000);
    spray.burst();
    EXPECT_TRUE(FailingAllocator::disarm());
    EXPECT_EQ(takeDots().size(), 8u) << "what four allocations hold";
}

}  // namespace
}  // namespace orvane
