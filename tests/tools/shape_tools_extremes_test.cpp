#include <limits>
#include <random>

#include "tools/arc_tool.h"
#include "tools/bezier_tool.h"
#include "tools/closed_curve_tool.h"
#include "tools/curve_tool.h"
#include "tools/ellipse_tool.h"
#include "tools/line_tool.h"
#include "tools/pie_tool.h"
#include "tools/polygon_tool.h"
#include "tools/polyline_tool.h"
#include "tools/rectangle_tool.h"
#include "tools/test_tool.h"

namespace orvane {
namespace {

/// Coordinates in and around the client area, and as far away as an int reaches.
struct WildMouse {
    std::mt19937 random{7};

    int coordinate() {
        constexpr int kFar[] = {std::numeric_limits<int>::min(),
                                std::numeric_limits<int>::max(),
                                -(1 << 24),
                                1 << 24,
                                -32768,
                                32767,
                                -1,
                                0};
        const auto pick = random() % 16;
        return pick < 8 ? kFar[pick] : int(random() % 200) - 40;
    }
    IntPoint point() { return {coordinate(), coordinate()}; }
};

template <class Tool>
class ShapeToolExtremes : public testing::Test {};

using ShapeTools = testing::Types<LineTool, PolylineTool, CurveTool, ClosedCurveTool, PolygonTool, BezierTool,
                                  RectangleTool, EllipseTool, ArcTool, PieTool>;
TYPED_TEST_SUITE(ShapeToolExtremes, ShapeTools);

template <class Tool>
void stepAnywhere(test::TestTool<Tool>& tool, WildMouse& mouse) {
    const auto anywhere = [&](IntPoint) { return mouse.point(); };
    const auto choice = mouse.random() % 40;
    if (choice < 12) {
        tool.press(mouse.point());
    } else if (choice < 16) {
        tool.rightPress(mouse.point());
    } else if (choice < 24) {
        tool.move(mouse.point());
    } else if (choice < 28) {
        tool.release(mouse.point());
    } else if (choice < 32) {
        EXPECT_LE(tool.tool.HitCursor(mouse.point()), CursorId::Handle);
    } else if (choice < 36) {
        tool.overlay();
    } else if (choice < 39) {
        tool.tool.reproject(anywhere);
    } else {
        tool.tool.commit(tool.document, anywhere);
    }
}

/// There is nothing to expect but an end, and nothing for the sanitizers to find.
TYPED_TEST(ShapeToolExtremes, AnyMouseAndAnyMappingAreSurvived) {
    WildMouse mouse;
    test::TestTool<TypeParam> tool({60, 50});
    for (int step = 0; step < 400; ++step) stepAnywhere(tool, mouse);
    tool.tool.Reset();
    EXPECT_EQ(tool.overlay(), tool.painted([](MutablePixelView) {}));
}

}  // namespace
}  // namespace orvane
