#include "tools/angle_box_tool.h"

#include <cmath>

#include "tools/arc_tool.h"
#include "tools/grab_handle.h"
#include "tools/pie_tool.h"
#include "tools/test_tool.h"

namespace orvane {
namespace {

using test::at;
using test::TestTool;

/// Half axes 30 and 20 around (50, 40).
template <class Tool>
struct Placed : TestTool<Tool> {
    explicit Placed(float start = 30, float sweep = 145) {
        this->drag({20, 20}, {80, 60});
        this->tool.startAngle = start;
        this->tool.sweepAngle = sweep;
    }
};

/// The direction from the centre, by another road than the tool's.
double directionOf(IntPoint p) { return std::atan2(p.y - 40, p.x - 50) * 180 / std::acos(-1.0); }

TEST(AngleBoxTool, HandlesLieOnTheEllipse) {
    const struct {
        float start, sweep;
        IntPoint startHandle, endHandle;
    } rows[] = {
        {0, 90, {80, 40}, {50, 60}},
        // A hair before 270 degrees, and so truncated to the column before.
        {180, 90, {20, 40}, {49, 20}},
        {-90, 360, {50, 20}, {49, 20}},
        // 45 degrees: the point (71, 61) of the circle of radius 30, 21 from the centre both ways, scaled by
        // 600 / (21 * sqrt(1300)), which is 0.7924...
        {45, 180, {66, 56}, {33, 23}},
    };
    for (const auto& row : rows) {
        Placed<ArcTool> arc(row.start, row.sweep);
        EXPECT_EQ(arc.tool.startHandle(), row.startHandle) << row.start;
        EXPECT_EQ(arc.tool.endHandle(), row.endHandle) << row.start;
    }
}

TEST(AngleBoxTool, HandlesNeedFourPixelsBothWays) {
    const struct {
        IntPoint corner;
        bool exist;
    } rows[] = {{{24, 24}, true}, {{23, 60}, false}, {{60, 23}, false}, {{20, 20}, false}};
    for (const auto& row : rows) {
        TestTool<PieTool> pie;
        EXPECT_FALSE(pie.tool.startHandle());
        pie.drag({20, 20}, row.corner);
        EXPECT_EQ(pie.tool.startHandle().has_value(), row.exist) << at(row.corner);
        EXPECT_EQ(pie.tool.endHandle().has_value(), row.exist) << at(row.corner);
    }
}

TEST(AngleBoxTool, DraggingTheStartTurnsTheArcAndKeepsItsSweep) {
    const struct {
        IntPoint mouse;
        float angle;
    } rows[] = {{{200, 40}, 0}, {{50, 41}, 90}, {{0, 40}, 180}, {{50, -300}, -90}};
    for (const auto& row : rows) {
        Placed<PieTool> pie;
        pie.press(*pie.tool.startHandle());
        EXPECT_TRUE(pie.tool.OnMouseMove(row.mouse)) << "also outside the bounds";
        EXPECT_FLOAT_EQ(pie.tool.startAngle, row.angle) << at(row.mouse);
        EXPECT_EQ(pie.tool.sweepAngle, 145) << at(row.mouse);
        pie.release(row.mouse);
        EXPECT_FALSE(pie.tool.draggingStart);
        EXPECT_EQ(pie.tool.box(), (IntRect{20, 20, 60, 40}));
        pie.tool.Reset();
        EXPECT_FLOAT_EQ(pie.tool.startAngle, row.angle) << "angles outlive the figure";
    }
}

TEST(AngleBoxTool, DraggingTheEndChangesTheSweep) {
    const struct {
        IntPoint mouse;
        float sweep;
    } rows[] = {{{50, 80}, 90}, {{10, 40}, 180}, {{50, 0}, 270}, {{90, 40}, 360}};
    for (const auto& row : rows) {
        Placed<PieTool> pie(0, 120);
        pie.press(*pie.tool.endHandle()).release(row.mouse);
        EXPECT_FLOAT_EQ(pie.tool.sweepAngle, row.sweep) << at(row.mouse);
        EXPECT_EQ(pie.tool.startAngle, 0);
        EXPECT_FALSE(pie.tool.draggingEnd);
    }
}

TEST(AngleBoxTool, AHandleLiesTowardTheMouseAllAround) {
    for (int degrees = 0; degrees < 360; degrees += 7) {
        const double radians = degrees * std::acos(-1.0) / 180;
        const IntPoint mouse{50 + int(200 * std::cos(radians)), 40 + int(200 * std::sin(radians))};
        Placed<ArcTool> arc;
        arc.press(*arc.tool.startHandle()).release(mouse);
        // Whole pixels at a distance of 20 and more: up to five degrees.
        EXPECT_NEAR(std::remainder(arc.tool.startAngle - directionOf(mouse), 360), 0, 6) << degrees;
        EXPECT_NEAR(std::remainder(directionOf(*arc.tool.startHandle()) - arc.tool.startAngle, 360), 0, 6)
            << degrees;
    }
}

TEST(AngleBoxTool, WhereThereIsNoDirectionNothingChanges) {
    Placed<PieTool> pie;
    pie.press(*pie.tool.startHandle());
    EXPECT_TRUE(pie.tool.OnMouseMove({50, 40})) << "the centre";
    EXPECT_EQ(pie.tool.startAngle, 30);
    pie.tool.corner2 = {80, 21};
    EXPECT_TRUE(pie.tool.OnMouseMove({90, 90})) << "a box without room";
    EXPECT_EQ(pie.tool.startAngle, 30);
    // Half axes of 1: the point toward the mouse is truncated to the centre.
    pie.tool.corner2 = {22, 22};
    EXPECT_TRUE(pie.tool.OnMouseMove({90, 90}));
    EXPECT_EQ(pie.tool.startAngle, 30);
}

TEST(AngleBoxTool, AngleHandlesComeBeforeThoseOfTheBox) {
    const struct {
        IntPoint mouse;
        bool grabbed;
        CursorId cursor;
    } rows[] = {
        {{80, 40}, true, CursorId::Handle},  {{77, 37}, true, CursorId::Handle},
        {{83, 43}, true, CursorId::Handle},  {{76, 36}, false, CursorId::Handle},
        {{84, 44}, false, CursorId::Handle}, {{75, 40}, false, CursorId::Move},
        {{85, 40}, false, CursorId::Arrow},
    };
    for (const auto& row : rows) {
        Placed<ArcTool> arc(0, 180);
        EXPECT_EQ(arc.tool.HitCursor(row.mouse), row.cursor) << at(row.mouse);
        arc.press(row.mouse);
        EXPECT_EQ(arc.tool.draggingStart, row.grabbed) << at(row.mouse);
    }
    Placed<ArcTool> arc(0, 180);
    arc.press({20, 40});
    EXPECT_TRUE(arc.tool.draggingEnd);
    EXPECT_EQ(arc.tool.activeHandle, -1);

    TestTool<ArcTool> small;
    small.drag({20, 20}, {26, 26});
    small.tool.startAngle = 45;
    EXPECT_EQ(small.tool.HitCursor({27, 28}), CursorId::SizeNorthwestSoutheast) << "diagonal cursors stay";
    EXPECT_EQ(small.tool.HitCursor({27, 25}), CursorId::Handle);
}

void drawDiamond(MutablePixelView view, IntPoint centre, int radius, Argb colour) {
    const auto [x, y] = centre;
    const IntPoint corners[] = {{x, y - radius}, {x + radius, y}, {x, y + radius}, {x - radius, y}};
    fillPolygon(view, SolidBrush{colour}, corners);
    drawPolygon(view, Pen(kBlack), corners);
}

TEST(AngleBoxTool, APieLiesUnderItsFrameAndDiamonds) {
    TestTool<PieTool> pie;
    pie.pen.width = 2;
    pie.press({20, 20}).move({80, 60});
    pie.tool.startAngle = 0;
    pie.tool.sweepAngle = 90;
    EXPECT_EQ(pie.overlay(), pie.painted([&](MutablePixelView view) {
        fillPie(view, *pie.brush.current(), {22, 22, 56, 36}, 0, 90);
        drawPie(view, *pie.pen.current(), {22, 22, 56, 36}, 0, 90);
        drawRectangle(view, Pen(kBlack), {20, 20, 60, 40});
        drawDiamond(view, {80, 40}, 4, kYellow);
        drawDiamond(view, {50, 60}, 4, kWhite);
    }));
}

}  // namespace
}  // namespace orvane
