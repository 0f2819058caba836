#include "tools/box_tool.h"

#include "tools/ellipse_tool.h"
#include "tools/grab_handle.h"
#include "tools/rectangle_tool.h"
#include "tools/test_tool.h"

namespace orvane {
namespace {

using test::at;
using test::TestTool;

/// A placed rectangle from (20, 20) to (80, 60): handles at 20, 50, 80 across and 20, 40, 60 down.
struct PlacedRectangle : TestTool<RectangleTool> {
    PlacedRectangle() { drag({20, 20}, {80, 60}); }
};

const IntPoint kHandles[] = {{20, 20}, {50, 20}, {80, 20}, {80, 40}, {80, 60}, {50, 60}, {20, 60}, {20, 40}};

TEST(BoxTool, OneDragLaysTheBoxOut) {
    TestTool<RectangleTool> box;
    EXPECT_FALSE(box.tool.awaitsSecondPoint());
    box.press({80, 60});
    EXPECT_TRUE(box.tool.awaitsSecondPoint()) << "so its drag takes the capture";
    EXPECT_TRUE(box.tool.OnMouseMove({30, 10}));
    EXPECT_EQ(box.tool.box(), (IntRect{30, 10, 50, 50}));
    EXPECT_EQ(box.tool.corner1, (IntPoint{80, 60})) << "not put in order while it is laid out";
    EXPECT_FALSE(box.tool.OnMouseMove({120, 10}));
    EXPECT_EQ(box.tool.corner2, (IntPoint{30, 10})) << "outside the bounds the corner stays";
    box.release({20, 20});
    EXPECT_EQ(box.tool.corner1, (IntPoint{20, 20}));
    EXPECT_EQ(box.tool.corner2, (IntPoint{80, 60}));
    box.press({5, 5});
    EXPECT_FALSE(box.tool.awaitsSecondPoint());
    EXPECT_FALSE(box.tool.OnMouseMove({7, 7})) << "a press beside the box is ignored";
}

TEST(BoxTool, TheGrabbedHandleStaysUnderTheMouseWhenTheBoxTurnsOver) {
    const struct {
        int grabbed;
        IntPoint to;
        int becomes;
        IntRect box;
    } rows[] = {
        {0, {90, 30}, 2, {80, 30, 10, 30}}, {0, {30, 70}, 6, {30, 60, 50, 10}},
        {0, {90, 70}, 4, {80, 60, 10, 10}}, {1, {99, 70}, 5, {20, 60, 60, 10}},
        {2, {10, 30}, 0, {10, 30, 10, 30}}, {2, {90, 70}, 4, {20, 60, 70, 10}},
        {3, {10, 99}, 7, {10, 20, 10, 40}}, {4, {10, 30}, 6, {10, 20, 10, 10}},
        {4, {10, 10}, 0, {10, 10, 10, 10}}, {5, {99, 10}, 1, {20, 10, 60, 10}},
        {6, {90, 70}, 4, {80, 20, 10, 50}}, {6, {30, 10}, 0, {30, 10, 50, 10}},
        {7, {90, 99}, 3, {80, 20, 10, 40}},
    };
    for (const auto& row : rows) {
        PlacedRectangle box;
        box.press(kHandles[row.grabbed]).move(row.to);
        EXPECT_EQ(box.tool.activeHandle, row.becomes) << row.grabbed << " to " << at(row.to);
        EXPECT_EQ(box.tool.box(), row.box) << row.grabbed << " to " << at(row.to);
        EXPECT_EQ(box.tool.corner1, (IntPoint{row.box.x, row.box.y}));
    }
}

TEST(BoxTool, ADragInsideMovesTheBoxUpToTheBounds) {
    PlacedRectangle box;
    box.press({40, 30}).move({45, 32});
    EXPECT_EQ(box.tool.box(), (IntRect{25, 22, 60, 40}));
    EXPECT_TRUE(box.tool.OnMouseMove({80, 32})) << "the step is refused, but the anchor follows";
    EXPECT_EQ(box.tool.box(), (IntRect{25, 22, 60, 40}));
    box.move({70, 32});
    EXPECT_EQ(box.tool.box(), (IntRect{15, 22, 60, 40}));
    box.release({90, 90});
    EXPECT_EQ(box.tool.box(), (IntRect{15, 22, 60, 40})) << "the release moves nothing";
    EXPECT_FALSE(box.tool.OnMouseMove({60, 32}));
}

TEST(BoxTool, AHandleDraggedOutOfTheBoundsIsRefusedForThatEvent) {
    PlacedRectangle box;
    box.press({80, 60});
    EXPECT_FALSE(box.tool.OnMouseMove({120, 70}));
    EXPECT_EQ(box.tool.box(), (IntRect{20, 20, 60, 40}));
    EXPECT_TRUE(box.tool.OnMouseMove({119, 70}));
    box.release({119, 100});
    EXPECT_EQ(box.tool.box(), (IntRect{20, 20, 99, 50}));

    TestTool<RectangleTool> fresh;
    fresh.press({20, 20}).move({80, 60}).release({150, 60});
    EXPECT_TRUE(fresh.tool.placed);
    EXPECT_EQ(fresh.tool.box(), (IntRect{20, 20, 60, 40}));
}

TEST(BoxTool, PressesAndCursorsKnowTheirSquares) {
    // The square that is shown covers 3 pixels to either side of the handle, in the left column shifted by
    // one; the one that grabs covers 4 pixels before and 3 after it.
    const struct {
        IntPoint mouse;
        int grabbed;
        CursorId cursor;
    } rows[] = {{{16, 16}, 0, CursorId::Arrow},
                {{16, 17}, 0, CursorId::SizeNorthwestSoutheast},
                {{15, 17}, -1, CursorId::Arrow},
                {{22, 23}, 0, CursorId::SizeNorthwestSoutheast},
                {{23, 23}, 0, CursorId::Move},
                {{24, 24}, -1, CursorId::Move},
                {{47, 17}, 1, CursorId::SizeNorthSouth},
                {{46, 17}, 1, CursorId::Arrow},
                {{53, 23}, 1, CursorId::SizeNorthSouth},
                {{54, 23}, -1, CursorId::Move},
                {{83, 17}, 2, CursorId::SizeNortheastSouthwest},
                {{84, 17}, -1, CursorId::Arrow},
                {{80, 40}, 3, CursorId::SizeWestEast},
                {{80, 60}, 4, CursorId::SizeNorthwestSoutheast},
                {{50, 60}, 5, CursorId::SizeNorthSouth},
                {{16, 63}, 6, CursorId::SizeNortheastSouthwest},
                {{16, 43}, 7, CursorId::SizeWestEast},
                {{79, 50}, -1, CursorId::Move},
                {{80, 50}, -1, CursorId::Arrow},
                {{30, 59}, -1, CursorId::Move},
                {{30, 60}, -1, CursorId::Arrow}};
    for (const auto& row : rows) {
        PlacedRectangle box;
        EXPECT_EQ(box.tool.HitCursor(row.mouse), row.cursor) << at(row.mouse);
        box.press(row.mouse);
        EXPECT_EQ(box.tool.activeHandle, row.grabbed) << at(row.mouse);
    }
    TestTool<RectangleTool> pending;
    pending.press({20, 20}).move({80, 60});
    EXPECT_EQ(pending.tool.HitCursor({50, 40}), CursorId::Arrow) << "not placed yet";
}

TEST(BoxTool, ARectangleIsItsOwnFrame) {
    PlacedRectangle box;
    box.pen.width = 2.5f;
    EXPECT_EQ(box.overlay(), box.painted([&](MutablePixelView view) {
        fillRectangle(view, *box.brush.current(), {20, 20, 60, 40});
        drawRectangle(view, *box.pen.current(), {20, 20, 60, 40});
        for (const bool outer : {false, true}) {
            for (const IntPoint centre : kHandles) {
                const int shift = centre.x == 20 ? 1 : 0, radius = outer ? 4 : 3;
                drawRectangle(view, Pen(outer ? kWhite : kBlack),
                              {centre.x - radius - shift, centre.y - radius, 2 * radius + 1, 2 * radius + 1});
            }
        }
    }));
}

TEST(BoxTool, AnEllipseLiesWithinItsOutlineInABlackFrame) {
    TestTool<EllipseTool> box;
    box.press({20, 20}).move({80, 60});
    box.pen.width = 6;
    const IntRect inner{26, 26, 48, 28};
    EXPECT_EQ(box.overlay(), box.painted([&](MutablePixelView view) {
        fillEllipse(view, *box.brush.current(), inner);
        drawEllipse(view, *box.pen.current(), inner);
        drawRectangle(view, Pen(kBlack), {20, 20, 60, 40});
    }));
    box.release({80, 60});
    EXPECT_EQ(box.overlayAt({84, 40}), kBlack) << "the frame's handles do not grow with the pen";
    EXPECT_EQ(box.overlayAt({76, 40}), kWhite);
    EXPECT_EQ(box.overlayAt({16, 40}), kBlack);
}

TEST(BoxTool, ARectangleIsCommittedToThePixel) {
    PlacedRectangle box;
    box.commit();
    const std::vector<Argb> expected = box.painted([&](MutablePixelView image) {
        for (int y = 20; y <= 60; ++y) {
            for (int x = 20; x <= 80; ++x) {
                const bool onEdge = x == 20 || x == 80 || y == 20 || y == 60;
                image.at(x, y) = onEdge ? box.pen.colour : box.brush.colour1;
            }
        }
    });
    EXPECT_EQ(box.image(), expected);
}

TEST(BoxTool, TheBoxIsMappedByItsFirstAndLastPixel) {
    PlacedRectangle box;
    box.brush.style = BrushSettings::Gradient;
    box.pen.width = 3;
    box.overlay();
    EXPECT_EQ(box.brush.gradientRectangle, (IntRect{23, 23, 54, 34}));
    box.tool.commit(box.document, [](IntPoint p) { return IntPoint{p.x / 2, p.y / 2 - 5}; });
    EXPECT_EQ(box.brush.gradientRectangle, (IntRect{10, 5, 60, 40})) << "its size in window pixels";
    EXPECT_EQ(box.image(), box.painted([&](MutablePixelView image) {
        const IntRect mapped{10, 5, 30, 20};  // columns 20 to 79 become 10 to 39
        fillRectangle(image, *box.brush.current(), mapped);
        drawRectangle(image, *box.pen.current(), mapped);
    }));
}

TEST(BoxTool, ABoxWithoutAreaShowsNothing) {
    TestTool<EllipseTool> box;
    box.commit();
    EXPECT_EQ(box.steps(), 0) << "nothing has been laid out";
    box.drag({20, 20}, {80, 20});
    EXPECT_EQ(box.overlay(), box.painted([](MutablePixelView) {}));
}

TEST(BoxTool, ReprojectionMovesTheCornersOnly) {
    PlacedRectangle box;
    box.press({40, 30});
    const auto doubled = [](IntPoint p) { return IntPoint{2 * p.x, 2 * p.y}; };
    box.tool.reproject(doubled);
    EXPECT_EQ(box.tool.box(), (IntRect{40, 40, 120, 80}));
    EXPECT_EQ(box.tool.moveAnchor, (IntPoint{40, 30}));
    box.tool.Reset();
    box.tool.reproject(doubled);
    EXPECT_EQ(box.tool.corner1, kUnsetPoint);
}

}  // namespace
}  // namespace orvane
