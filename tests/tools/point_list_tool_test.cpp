#include "tools/point_list_tool.h"

#include "support/failing_allocator.h"
#include "tools/closed_curve_tool.h"
#include "tools/curve_tool.h"
#include "tools/grab_handle.h"
#include "tools/polygon_tool.h"
#include "tools/polyline_tool.h"
#include "tools/test_tool.h"

namespace orvane {
namespace {

using test::TestTool;
using Vertices = std::vector<IntPoint>;

const std::initializer_list<IntPoint> kCorners{{20, 20}, {90, 30}, {60, 80}, {25, 55}};

TEST(PointListTool, ClicksBesideTheVerticesAddOnesAndRightClicksOnThemDelete) {
    TestTool<PolylineTool> list;
    list.clicks({{20, 20}, {60, 60}, {90, 20}, {300, -5}});
    EXPECT_EQ(list.tool.vertices, (Vertices{{20, 20}, {60, 60}, {90, 20}, {300, -5}}))
        << "also outside the bounds";
    EXPECT_FALSE(list.tool.placed);
    list.rightPress({63, 64});
    EXPECT_EQ(list.tool.vertices, (Vertices{{20, 20}, {90, 20}, {300, -5}}));
    list.rightPress({64, 64});
    EXPECT_EQ(list.tool.vertices.size(), 3u) << "nothing there";
    list.press({90, 20}).rightPress({20, 20});
    EXPECT_FALSE(list.tool.OnMouseMove({50, 50})) << "deleting lets go of what was grabbed";
    list.rightPress({90, 20}).rightPress({300, -5});
    EXPECT_TRUE(list.tool.vertices.empty());
}

TEST(PointListTool, AVertexIsDraggedWithinTheBounds) {
    TestTool<PolylineTool> list;
    list.clicks({{20, 20}, {60, 60}, {66, 60}});
    EXPECT_FALSE(list.tool.OnMouseMove({1, 1})) << "nothing grabbed";
    list.press({64, 60});
    EXPECT_EQ(list.tool.activeHandle, 1) << "the first vertex under the mouse";
    EXPECT_TRUE(list.tool.OnMouseMove({70, 90}));
    EXPECT_FALSE(list.tool.OnMouseMove({120, 90}));
    list.release({5, 5});
    EXPECT_EQ(list.tool.vertices, (Vertices{{20, 20}, {70, 90}, {66, 60}})) << "the release moves nothing";
    EXPECT_EQ(list.tool.activeHandle, -1);
    EXPECT_EQ(list.tool.HitCursor({67, 87}), CursorId::Handle);
    EXPECT_EQ(list.tool.HitCursor({66, 87}), CursorId::Arrow);
}

TEST(PointListTool, AppendPointSkipsRepetitions) {
    TestTool<PolylineTool> list;
    EXPECT_TRUE(list.tool.AppendPoint({5, 5}));
    EXPECT_FALSE(list.tool.AppendPoint({5, 5}));
    EXPECT_TRUE(list.tool.AppendPoint({5, 6}));
    EXPECT_TRUE(list.tool.AppendPoint({5, 5}));
    EXPECT_EQ(list.tool.vertices, (Vertices{{5, 5}, {5, 6}, {5, 5}}));
}

TEST(PointListTool, AListThatCannotGrowDropsThePoint) {
    TestTool<PolylineTool> list;
    list.clicks({{20, 20}, {60, 60}});
    FailingAllocator::arm(1, 1000);
    list.click({90, 90});
    list.commit();
    FailingAllocator::disarm();
    EXPECT_EQ(list.tool.vertices, (Vertices{{20, 20}, {60, 60}}));
    EXPECT_EQ(list.steps(), 0) << "the commit was given up as well";
}

/// What each of the four promises: from how many vertices on it is seen and committed.
struct ShapeRule {
    std::size_t seenFrom, committedFrom;
    void (*drawn)(MutablePixelView, const Pen&, const Brush&, std::span<const IntPoint>);
};

template <class Tool>
void holdsTo(const ShapeRule& rule) {
    for (std::size_t count = 0; count <= kCorners.size(); ++count) {
        SCOPED_TRACE(count);
        TestTool<Tool> list;
        list.brush.colour1 = 0x80204060u;
        list.pen.width = 3;
        list.tool.vertices.assign(kCorners.begin(), kCorners.begin() + count);
        list.tool.showHandles = false;
        const std::vector<Argb> seen = list.overlay();
        EXPECT_EQ(seen, list.painted([&](MutablePixelView view) {
            if (count >= rule.seenFrom)
                rule.drawn(view, *list.pen.current(), *list.brush.current(), list.tool.vertices);
        }));
        list.commit();
        const bool committed = count >= rule.committedFrom;
        EXPECT_EQ(list.tool.vertices.empty(), committed || count == 0) << "otherwise it stays pending";
        if (committed) {
            // Two vertices of a polygon are a line that only the image shows.
            EXPECT_EQ(list.image(), count >= rule.seenFrom ? seen : list.painted([&](MutablePixelView view) {
                drawLine(view, *list.pen.current(), kCorners.begin()[0], kCorners.begin()[1]);
            }));
        }
    }
}

TEST(PointListTool, ShapesAreCommittedAsTheyWereSeen) {
    holdsTo<PolylineTool>(
        {2, 2, [](auto view, auto& pen, auto&, auto points) { drawLines(view, pen, points); }});
    holdsTo<CurveTool>(
        {2, 2, [](auto view, auto& pen, auto&, auto points) { drawCurve(view, pen, points); }});
    holdsTo<ClosedCurveTool>({3, 3, [](auto view, auto& pen, auto& brush, auto points) {
                                  fillClosedCurve(view, brush, points);
                                  drawClosedCurve(view, pen, points);
                              }});
    holdsTo<PolygonTool>({3, 2, [](auto view, auto& pen, auto& brush, auto points) {
                              fillPolygon(view, brush, points);
                              drawPolygon(view, pen, points);
                          }});
}

TEST(PointListTool, HandlesLieOverTheShapeAndDoNotWaitForIt) {
    TestTool<PolygonTool> list;
    list.click({20, 20});
    EXPECT_EQ(list.overlay(), list.painted([](MutablePixelView view) { drawGrabHandle(view, {20, 20}, 3); }));
    list.clicks({{90, 30}, {60, 80}});
    EXPECT_EQ(list.overlay(), list.painted([&](MutablePixelView view) {
        fillPolygon(view, *list.brush.current(), list.tool.vertices);
        drawPolygon(view, *list.pen.current(), list.tool.vertices);
        for (const IntPoint vertex : list.tool.vertices) drawGrabHandle(view, vertex, 3);
    }));
}

TEST(PointListTool, AGradientRunsAcrossTheVerticesAndKeepsItsSizeInTheImage) {
    const auto halved = [](IntPoint p) { return IntPoint{p.x / 2 + 3, p.y / 2 + 4}; };
    const IntRect untouched{0, 0, 10, 10};

    TestTool<PolygonTool> polygon;
    polygon.clicks(kCorners);
    polygon.overlay();
    EXPECT_EQ(polygon.brush.gradientRectangle, untouched) << "other styles leave it alone";
    polygon.brush.style = BrushSettings::Gradient;
    polygon.overlay();
    EXPECT_EQ(polygon.brush.gradientRectangle, (IntRect{20, 20, 71, 61}));
    polygon.tool.commit(polygon.document, halved);
    EXPECT_EQ(polygon.brush.gradientRectangle, (IntRect{13, 14, 71, 61}));

    TestTool<ClosedCurveTool> curve;
    curve.brush.style = BrushSettings::Gradient;
    curve.clicks({{20, 20}, {108, 30}});
    curve.overlay();
    EXPECT_EQ(curve.brush.gradientRectangle, untouched) << "nothing to fill yet";
    curve.clicks({{60, 80}});
    curve.overlay();
    EXPECT_EQ(curve.brush.gradientRectangle, (IntRect{12, 14, 105, 73})) << "89 x 61, with 8 and 6 around it";
    curve.tool.commit(curve.document, halved);
    EXPECT_EQ(curve.brush.gradientRectangle, (IntRect{9, 11, 105, 73}));
}

TEST(PointListTool, EveryPointIsMapped) {
    const auto halved = [](IntPoint p) { return IntPoint{p.x / 2 + 3, p.y / 2 + 4}; };
    TestTool<PolylineTool> list;
    list.tool.showHandles = false;
    list.clicks(kCorners);
    list.tool.reproject(halved);
    EXPECT_EQ(list.tool.vertices, (Vertices{{13, 14}, {48, 19}, {33, 44}, {15, 31}}));
    list.tool.Reset();

    list.clicks(kCorners);
    list.tool.commit(list.document, halved);
    const std::vector<Argb> committed = list.image();
    list.clicks({{13, 14}, {48, 19}, {33, 44}, {15, 31}});
    EXPECT_EQ(committed, list.overlay());
}

}  // namespace
}  // namespace orvane
