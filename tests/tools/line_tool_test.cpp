#include "tools/line_tool.h"

#include "tools/grab_handle.h"
#include "tools/test_tool.h"

namespace orvane {
namespace {

using test::at;
using test::TestTool;
using Ends = std::array<IntPoint, 2>;

TEST(LineTool, OneDragLaysTheLineOut) {
    TestTool<LineTool> line;
    EXPECT_TRUE(line.tool.awaitsSecondPoint());
    line.press({10, 20});
    EXPECT_TRUE(line.tool.awaitsSecondPoint()) << "so its drag takes the capture";
    EXPECT_EQ(line.tool.ends, (Ends{{{10, 20}, kUnsetPoint}}));
    EXPECT_TRUE(line.tool.OnMouseMove({30, 40}));
    EXPECT_FALSE(line.tool.awaitsSecondPoint());
    EXPECT_FALSE(line.tool.placed);
    line.release({50, 60});
    EXPECT_TRUE(line.tool.placed);
    EXPECT_EQ(line.tool.ends, (Ends{{{10, 20}, {50, 60}}}));

    line.press({90, 90});
    EXPECT_FALSE(line.tool.OnMouseMove({80, 80})) << "a press beside the ends is ignored";
    line.release({80, 80});
    EXPECT_EQ(line.tool.ends, (Ends{{{10, 20}, {50, 60}}}));
}

TEST(LineTool, TheMouseCountsOnlyInsideTheBounds) {
    TestTool<LineTool> line;
    line.click({10, 20});
    EXPECT_EQ(line.tool.ends, (Ends{{{10, 20}, {10, 20}}})) << "a click is a line of length zero";
    EXPECT_TRUE(line.tool.placed);
    line.tool.Reset();
    line.press({10, 20}).move({119, 99});
    EXPECT_FALSE(line.tool.OnMouseMove({120, 50}));
    EXPECT_FALSE(line.tool.OnMouseMove({50, -1}));
    line.release({50, 100});
    EXPECT_TRUE(line.tool.placed);
    EXPECT_EQ(line.tool.ends, (Ends{{{10, 20}, {119, 99}}}));
}

TEST(LineTool, EitherEndIsGrabbedWithinItsSquare) {
    const struct {
        float width;
        IntPoint mouse;
        int grabbed;
    } rows[] = {
        {1.0f, {47, 47}, 0},  {1.0f, {46, 47}, -1}, {1.0f, {47, 46}, -1}, {1.0f, {54, 54}, 0},
        {1.0f, {55, 54}, -1}, {1.0f, {54, 55}, -1}, {4.0f, {45, 56}, 0},  {4.0f, {44, 56}, -1},
        {4.0f, {45, 57}, -1}, {1.0f, {83, 17}, 1},  {1.0f, {91, 20}, -1},
    };
    for (const auto& row : rows) {
        TestTool<LineTool> line;
        line.drag({50, 50}, {86, 20});
        line.pen.width = row.width;
        line.press(row.mouse);
        EXPECT_EQ(line.tool.activeHandle, row.grabbed) << at(row.mouse);
        EXPECT_EQ(line.tool.HitCursor(row.mouse), row.grabbed < 0 ? CursorId::Arrow : CursorId::Handle)
            << at(row.mouse);
        EXPECT_EQ(line.tool.OnMouseMove({5, 6}), row.grabbed >= 0);
        line.release({7, 8});
        Ends expected{{{50, 50}, {86, 20}}};
        if (row.grabbed >= 0) expected[std::size_t(row.grabbed)] = {7, 8};
        EXPECT_EQ(line.tool.ends, expected) << at(row.mouse);
    }
}

TEST(LineTool, HandlesLieUnderTheLine) {
    TestTool<LineTool> line;
    line.press({20, 50}).move({100, 50});
    EXPECT_EQ(line.overlayAt({23, 54}), kWhite) << "no handles before the line is placed";
    line.release({100, 50});
    EXPECT_EQ(line.overlay(), line.painted([&](MutablePixelView view) {
        drawGrabHandle(view, {20, 50}, 3);
        drawGrabHandle(view, {100, 50}, 3);
        drawLine(view, *line.pen.current(), {20, 50}, {100, 50});
    }));
    EXPECT_EQ(line.overlayAt({24, 54}), kBlack);
    EXPECT_EQ(line.overlayAt({24, 50}), line.pen.colour);
}

TEST(LineTool, AStartAloneIsDroppedByACommit) {
    TestTool<LineTool> line;
    line.press({10, 20}).commit();
    EXPECT_EQ(line.steps(), 0);
    EXPECT_EQ(line.tool.ends[0], kUnsetPoint);
}

TEST(LineTool, ReprojectionMovesBothEnds) {
    TestTool<LineTool> line;
    const auto doubled = [](IntPoint p) { return IntPoint{2 * p.x - 50, 2 * p.y}; };
    line.press({10, 20});
    line.tool.reproject(doubled);
    EXPECT_EQ(line.tool.ends[0], (IntPoint{10, 20})) << "no line yet";
    line.release({40, 30});
    line.tool.reproject(doubled);
    EXPECT_EQ(line.tool.ends, (Ends{{{-30, 40}, {30, 60}}}));
    line.tool.showHandles = false;
    EXPECT_EQ(line.overlay(), line.painted([](MutablePixelView) {})) << "reaches over the window's left edge";
}

}  // namespace
}  // namespace orvane
