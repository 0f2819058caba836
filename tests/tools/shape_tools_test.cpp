#include <algorithm>
#include <limits>
#include <random>
#include <type_traits>

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

template <class Tool>
class EveryShapeTool : public testing::Test {};

using ShapeTools = testing::Types<LineTool, PolylineTool, CurveTool, ClosedCurveTool, PolygonTool, BezierTool,
                                  RectangleTool, EllipseTool, ArcTool, PieTool>;
TYPED_TEST_SUITE(EveryShapeTool, ShapeTools);

template <class Tool>
constexpr bool kFills = std::is_same_v<Tool, ClosedCurveTool> || std::is_same_v<Tool, PolygonTool> ||
                        (std::is_base_of_v<BoxTool, Tool> && !std::is_same_v<Tool, ArcTool>);

/// A figure that reaches from (30, 10) to (90, 70).
template <class Tool>
void layOut(test::TestTool<Tool>& tool) {
    if constexpr (std::is_base_of_v<PointListTool, Tool>)
        tool.clicks({{40, 10}, {60, 15}, {90, 40}, {80, 60}, {60, 70}, {30, 50}});
    else
        tool.drag({30, 10}, {90, 70});
}

/// The pixels within the frame that some of them show.
std::vector<Argb> insideFrame(const std::vector<Argb>& pixels, int width) {
    std::vector<Argb> inside;
    for (int y = 11; y < 70; ++y) {
        const Argb* row = &pixels[std::size_t(y * width)];
        inside.insert(inside.end(), row + 31, row + 90);
    }
    return inside;
}

TYPED_TEST(EveryShapeTool, CommitsWhatWasSeenAsOneStep) {
    test::TestTool<TypeParam> tool;
    tool.pen.width = 4;
    tool.pen.colour = 0x800000FFu;
    tool.brush.colour1 = 0xFF204060u;
    tool.tool.showHandles = false;
    layOut(tool);
    const std::vector<Argb> seen = tool.overlay();
    tool.commit();
    EXPECT_EQ(insideFrame(tool.image(), 120), insideFrame(seen, 120));
    EXPECT_EQ(std::count(seen.begin(), seen.end(), 0xFF204060u) > 500, kFills<TypeParam>);
    EXPECT_EQ(tool.steps(), 1);
    EXPECT_EQ(tool.overlay(), tool.painted([](MutablePixelView) {})) << "nothing is pending any more";
}

TYPED_TEST(EveryShapeTool, CommitsWithoutAPenOnlyWhatHasAnInside) {
    test::TestTool<TypeParam> tool;
    layOut(tool);
    tool.pen.dashStyle = 5;
    tool.commit();
    EXPECT_EQ(tool.steps(), kFills<TypeParam> ? 1 : 0);
    tool.pen.dashStyle = 0;
    tool.commit();
    EXPECT_EQ(tool.steps(), 1) << "what was not committed has stayed";
}

TYPED_TEST(EveryShapeTool, SetsAGradientOnlyWhereItFills) {
    test::TestTool<TypeParam> tool;
    tool.brush.style = BrushSettings::Gradient;
    layOut(tool);
    tool.overlay();
    EXPECT_EQ(tool.brush.gradientRectangle != (IntRect{0, 0, 10, 10}), kFills<TypeParam>);
}

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
TYPED_TEST(EveryShapeTool, AnyMouseAndAnyMappingAreSurvived) {
    WildMouse mouse;
    test::TestTool<TypeParam> tool({60, 50});
    for (int step = 0; step < 400; ++step) stepAnywhere(tool, mouse);
    tool.tool.Reset();
    EXPECT_EQ(tool.overlay(), tool.painted([](MutablePixelView) {}));
}

}  // namespace
}  // namespace orvane
