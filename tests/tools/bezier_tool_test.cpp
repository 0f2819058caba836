#include "tools/bezier_tool.h"

#include "tools/grab_handle.h"
#include "tools/test_tool.h"

namespace orvane {
namespace {

using test::TestTool;
using Points = std::vector<IntPoint>;

const std::initializer_list<IntPoint> kClicks{{20, 20}, {30, 40}, {60, 20}, {70, 50}, {100, 80}, {40, 90}};

TEST(BezierTool, EverySecondClickBringsAnAnchorWithItsMirroredControl) {
    TestTool<BezierTool> bezier;
    EXPECT_EQ(bezier.tool.bezierCount, -2);
    const struct {
        IntPoint click;
        Points added;
        int bezierCount;
    } rows[] = {
        {{20, 20}, {{20, 20}}, -2},  {{30, 40}, {{30, 40}, {40, 60}}, 1},
        {{60, 20}, {{60, 20}}, 1},   {{70, 50}, {{70, 50}, {80, 80}}, 4},
        {{100, 80}, {{100, 80}}, 4}, {{40, 90}, {{40, 90}, {-20, 100}}, 7},
    };
    Points expected;
    for (const auto& row : rows) {
        bezier.click(row.click);
        expected.insert(expected.end(), row.added.begin(), row.added.end());
        EXPECT_EQ(bezier.tool.vertices, expected);
        EXPECT_EQ(bezier.tool.bezierCount, row.bezierCount);
    }
    bezier.rightPress({30, 40});
    EXPECT_EQ(bezier.tool.vertices, expected) << "there is no deleting";
    bezier.tool.Reset();
    EXPECT_EQ(bezier.tool.bezierCount, -2);
}

TEST(BezierTool, ControlsStayMirroredThroughTheirAnchor) {
    const struct {
        const char* name;
        std::size_t clicks;
        IntPoint from, to;
        std::vector<std::pair<std::size_t, IntPoint>> changed;
    } rows[] = {
        {"an anchor", 6, {70, 50}, {75, 47}, {{3, {65, 17}}, {4, {75, 47}}, {5, {85, 77}}}},
        {"the control before an anchor", 6, {60, 20}, {61, 25}, {{3, {61, 25}}, {5, {79, 75}}}},
        {"the control behind an anchor", 6, {40, 60}, {50, 50}, {{2, {50, 50}}, {0, {10, 30}}}},
        {"a control that has no partner yet", 5, {100, 80}, {90, 85}, {{6, {90, 85}}}},
        {"the only point", 1, {20, 20}, {25, 26}, {{0, {25, 26}}}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        TestTool<BezierTool> bezier;
        for (std::size_t i = 0; i < row.clicks; ++i) bezier.click(*(kClicks.begin() + i));
        Points expected = bezier.tool.vertices;
        for (const auto& [index, point] : row.changed) expected[index] = point;
        bezier.press(row.from);
        EXPECT_FALSE(bezier.tool.OnMouseMove({-1, 50}));
        EXPECT_TRUE(bezier.tool.OnMouseMove(row.to));
        bezier.release({0, 0});
        EXPECT_EQ(bezier.tool.vertices, expected);
    }
}

TEST(BezierTool, OneSegmentIsSeenAndTwoAreCommitted) {
    TestTool<BezierTool> bezier;
    bezier.tool.showHandles = false;
    for (const IntPoint click : kClicks) {
        bezier.click(click);
        const std::size_t points = bezier.tool.vertices.size();
        EXPECT_EQ(bezier.overlay(), bezier.painted([&](MutablePixelView view) {
            if (points >= 6)
                drawBeziers(view, *bezier.pen.current(), {&bezier.tool.vertices[1], points >= 9 ? 7u : 4u});
        }));
        if (points == 9) break;
        bezier.commit();
        EXPECT_EQ(bezier.steps(), 0);
        EXPECT_EQ(bezier.tool.vertices.size(), points);
    }
    bezier.commit();
    EXPECT_EQ(bezier.steps(), 1);
    EXPECT_TRUE(bezier.tool.vertices.empty());
    EXPECT_EQ(bezier.tool.bezierCount, -2);
}

TEST(BezierTool, GuidesDotsAndHandlesLieOverTheCurve) {
    TestTool<BezierTool> bezier;
    bezier.clicks(kClicks);
    const Points& p = bezier.tool.vertices;
    const auto dot = [](MutablePixelView view, IntPoint centre) {
        fillEllipse(view, SolidBrush{kYellow}, {centre.x - 3, centre.y - 3, 7, 7});
        drawEllipse(view, Pen(kBlack), {centre.x - 3, centre.y - 3, 7, 7});
    };
    EXPECT_EQ(bezier.overlay(), bezier.painted([&](MutablePixelView view) {
        drawBeziers(view, *bezier.pen.current(), {&p[1], 7});
        for (const std::size_t i : {0, 3, 6}) drawLine(view, Pen(kBlack), p[i], p[i + 2]);
        for (const std::size_t i : {0, 3, 6}) {
            dot(view, p[i]);
            drawGrabHandle(view, p[i + 1], 3);
            dot(view, p[i + 2]);
        }
    }));
    EXPECT_EQ(bezier.overlayAt({100, 80}), kYellow);
}

}  // namespace
}  // namespace orvane
