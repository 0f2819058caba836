#include "tools/stroke_tool.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <random>

#include "platform/graphics/fill.h"
#include "platform/graphics/shapes.h"
#include "support/failing_allocator.h"
#include "tools/brush_stroke_tool.h"
#include "tools/eraser_tool.h"
#include "tools/freehand_fixture.h"

namespace orvane {
namespace {

using test::Canvas;
using test::kPaper;
using test::samePoint;

constexpr Argb kInk = 0xFF4060A0u;

class Strokes : public test::Freehand {
 protected:
    Strokes() {
        brush.colour1 = kInk & 0x30FFFFFFu;  // the brush paints opaquely all the same
    }

    void useNib(int style, int size) {
        freehand.brushStyle = style;
        freehand.brushSize = freehand.eraserSize = size;
    }
    static void lead(StrokeTool& tool, std::initializer_list<IntPoint> way) {
        for (const IntPoint point : way) tool.AppendPoint(point);
    }
    static Canvas overlayOf(StrokeTool& tool) {
        Canvas canvas;
        tool.Draw(canvas.view());
        return canvas;
    }
    /// The window pixels at which the image was stamped, in order.
    std::vector<IntPoint> committedStamps(StrokeTool& tool) {
        std::vector<IntPoint> stamps;
        const auto record = [&](IntPoint point) {
            stamps.push_back(point);
            return point;
        };
        tool.commit(document, record);
        return stamps;
    }

    Argb eraserColor = kInk;
    BrushStrokeTool stroke{pen, brush, freehand};
    EraserTool eraser{pen, brush, freehand, eraserColor};
};

void line(Canvas& canvas, IntPoint from, IntPoint to) { drawLine(canvas.view(), Pen(kInk), from, to); }

TEST_F(Strokes, ClickDrawsTheNib) {
    const struct {
        int style, size;
        IntPoint begin, end;
    } bars[] = {{0, 4, {16, 30}, {24, 30}},
                {1, 3, {17, 27}, {23, 33}},
                {2, 11, {20, 19}, {20, 41}},
                {3, 1, {21, 29}, {19, 31}}};
    for (const auto& row : bars) {
        useNib(row.style, row.size);
        stroke.AppendPoint({20, 30});
        Canvas expected;
        line(expected, row.begin, row.end);
        EXPECT_NE(expected, Canvas());
        EXPECT_EQ(overlayOf(stroke), expected) << "style " << row.style;
        stroke.commit(document, samePoint);
        EXPECT_EQ(image(), expected) << "style " << row.style;
        document.undo();
    }
    for (const int size : {1, 3, 4, 11}) {
        const IntRect box{20 - size, 30 - size, 2 * size + 1, 2 * size + 1};
        Canvas square, circle;
        fillRect(square.view(), box, kInk);
        fillEllipse(circle.view(), SolidBrush{kInk}, box);
        for (const int style : {4, 5}) {
            useNib(style, size);
            stroke.AppendPoint({20, 30});
            EXPECT_EQ(overlayOf(stroke), style == 4 ? square : circle) << style << ", size " << size;
            stroke.Reset();
        }
        eraser.AppendPoint({20, 30});
        eraser.commit(document, samePoint);
        EXPECT_EQ(image(), square) << "eraser, size " << size;
        document.undo();
    }
}

TEST_F(Strokes, BarsAreSweptFromPointToPoint) {
    const struct {
        int style;
        IntPoint end1, end2;
    } rows[] = {{0, {-4, 0}, {4, 0}}, {1, {4, 4}, {-4, -4}}, {2, {0, 4}, {0, -4}}, {3, {-4, 4}, {4, -4}}};
    for (const auto& row : rows) {
        const auto swept = [&, e1 = row.end1, e2 = row.end2](IntPoint a, IntPoint b) {
            Canvas canvas;
            line(canvas, a, b);
            const IntPoint corners[] = {{a.x + e1.x, a.y + e1.y},
                                        {a.x + e2.x, a.y + e2.y},
                                        {b.x + e2.x, b.y + e2.y},
                                        {b.x + e1.x, b.y + e1.y}};
            fillPolygon(canvas.view(), SolidBrush{kInk}, corners);
            return canvas;
        };
        useNib(row.style, 4);
        lead(stroke, {{20, 12}, {13, 30}});
        EXPECT_EQ(overlayOf(stroke), swept({20, 12}, {13, 30})) << "style " << row.style;
        // The points are mapped, the nib is not.
        stroke.commit(document, [](IntPoint point) { return IntPoint{2 * point.x, point.y - 2}; });
        EXPECT_EQ(image(), swept({40, 10}, {26, 28})) << "style " << row.style;
        document.undo();
    }
}

/// How many of 8 x 8 places in a pixel a rising bar passes that is led along a way from left to right.
int placesSwept(const std::vector<IntPoint>& way, int size, int x, int y) {
    int places = 0;
    for (int place = 0; place < 64; ++place) {
        const double px = x + (place % 8 + 0.5) / 8, py = y + (place / 8 + 0.5) / 8;
        for (std::size_t i = 1; i < way.size(); ++i) {
            // Along the bar and across it, with the bar through (0, 0) as it is at the first point.
            const double along = px - way[i - 1].x - (py - way[i - 1].y),
                         across = px - way[i - 1].x + py - way[i - 1].y;
            const double dx = way[i].x - way[i - 1].x, dy = way[i].y - way[i - 1].y;
            const double part = across / (dx + dy);
            if (part >= 0 && part <= 1 && std::abs(along - part * (dx - dy)) <= 2 * size) {
                ++places;
                break;
            }
        }
    }
    return places;
}

TEST_F(Strokes, SweepsMeetWithoutSeams) {
    useNib(3, 6);
    for (const int stride : {1, 2, 5, 9}) {
        std::vector<IntPoint> way;
        for (int x = 8; x < 50; x += stride) way.push_back({x, 25 + int(12 * std::sin(x * 0.06))});
        for (const IntPoint point : way) stroke.AppendPoint(point);
        Canvas painted = overlayOf(stroke);
        int seams = 0, strays = 0;
        for (int y = 0; y < 50; ++y) {
            for (int x = 0; x < 60; ++x) {
                const int places = placesSwept(way, 6, x, y);
                seams += places == 64 && painted.view().at(x, y) != kInk;
                strays += places == 0 && redOf(painted.view().at(x, y)) < 0xC0;
            }
        }
        EXPECT_EQ(seams, 0) << "stride " << stride;
        EXPECT_LE(strays, 2) << "only the line's end stands out; stride " << stride;
        stroke.Reset();
    }
}

TEST_F(Strokes, MarkerShowsNibAndCross) {
    Pen dots(0xFF000000u);
    dots.dash = {{1.0f, 1.0f}, 2};
    dots.dashOffset = 0.5f;
    const struct {
        int style, reach;
        bool vertical, horizontal;
    } rows[] = {{0, 4, true, false}, {1, 4, true, true}, {2, 4, false, true},
                {3, 4, true, true},  {4, 7, true, true}, {5, 7, true, true}};
    for (const auto& row : rows) {
        useNib(row.style, 4);
        stroke.Reset();
        stroke.AppendPoint({20, 30});
        Canvas expected = overlayOf(stroke);
        const auto finish = [&](Canvas& canvas) {
            const int r = row.reach;
            if (row.vertical) drawLine(canvas.view(), dots, {20, 30 - r}, {20, 30 + r + 1});
            if (row.horizontal) drawLine(canvas.view(), dots, {20 - r, 30}, {20 + r + 1, 30});
        };
        finish(expected);
        Canvas actual;
        stroke.drawMarker(actual.view(), {20, 30});
        EXPECT_EQ(actual, expected) << "style " << row.style;
        if (row.style != 4) continue;
        Canvas outlined, erasing;
        fillRect(outlined.view(), {16, 26, 9, 9}, kInk);
        drawRectangle(outlined.view(), Pen(0xFF000000u), {16, 26, 9, 9});
        finish(outlined);
        eraser.drawMarker(erasing.view(), {20, 30});
        EXPECT_EQ(erasing, outlined);
    }
}

TEST_F(Strokes, StampsFormAChainWithoutRepeats) {
    EXPECT_FALSE(eraser.AppendPoint({10, 10})) << "a first point is no stroke yet";
    EXPECT_TRUE(eraser.AppendPoint({14, 12}));
    EXPECT_FALSE(eraser.AppendPoint({14, 12})) << "the mouse rests";
    EXPECT_EQ(committedStamps(eraser),
              (std::vector<IntPoint>{{10, 10}, {11, 10}, {12, 11}, {13, 11}, {14, 12}}));

    lead(eraser, {{10, 10}, {13, 10}, {12, 10}, {12, 12}});
    EXPECT_EQ(committedStamps(eraser),
              (std::vector<IntPoint>{{10, 10}, {11, 10}, {12, 10}, {13, 10}, {12, 10}, {12, 11}, {12, 12}}));
    std::mt19937 random(3);
    for (int i = 0; i < 500; ++i) eraser.AppendPoint({int(random() % 60), int(random() % 50)});
    const std::vector<IntPoint> stamps = committedStamps(eraser);
    ASSERT_GT(stamps.size(), 5000u);
    for (std::size_t i = 1; i < stamps.size(); ++i) {
        const int apart =
            std::max(std::abs(stamps[i].x - stamps[i - 1].x), std::abs(stamps[i].y - stamps[i - 1].y));
        ASSERT_EQ(apart, 1) << "stamp " << i;
    }
}

TEST_F(Strokes, TrailIsTheSameInAnyDivision) {
    std::mt19937 random(11);
    for (const int style : {0, 1, 2, 3, 4, 5}) {
        useNib(style, 3);
        stroke.Reset();
        EXPECT_EQ(stroke.trailLength(), 0u);
        Canvas grown, divided;
        std::size_t drawn = 0;
        for (int i = 0; i < 60; ++i) {
            stroke.AppendPoint({int(random() % 80) - 10, int(random() % 70) - 10});
            stroke.drawTrail(grown.view(), drawn, stroke.trailLength());
            drawn = stroke.trailLength();
        }
        for (std::size_t from = 0, to = 0; from < drawn; from = to) {
            to = std::min(drawn, from + random() % 90);
            stroke.drawTrail(divided.view(), from, to);
        }
        EXPECT_EQ(grown, overlayOf(stroke)) << "style " << style;
        EXPECT_EQ(divided, overlayOf(stroke)) << "style " << style;
    }
}

TEST_F(Strokes, TrailLookIsOfOneStroke) {
    lead(stroke, {{1, 1}, {9, 9}});
    const TrailLook look = stroke.trailLook();
    lead(stroke, {{9, 9}, {20, 30}});
    EXPECT_EQ(stroke.trailLook(), look) << "a longer trail looks the same as far as it was drawn";
    brush.colour1 ^= 0xFF000000u;
    EXPECT_EQ(stroke.trailLook(), look) << "the brush's alpha does not count";
    stroke.Reset();
    lead(stroke, {{1, 1}, {9, 9}});
    EXPECT_NE(stroke.trailLook(), look);
}

TEST_F(Strokes, CommitIsOneStepAndEndsTheStroke) {
    for (const int style : {0, 5}) {
        useNib(style, 4);
        lead(stroke, {{10, 10}, {30, 20}, {5, 40}});
        const Canvas overlay = overlayOf(stroke);
        const int before = steps();
        stroke.commit(document, samePoint);
        EXPECT_EQ(steps(), before + 1);
        EXPECT_EQ(image(), overlay) << "the image gets what was seen";
        document.undo();
        EXPECT_EQ(overlayOf(stroke), Canvas()) << "nothing is left of the stroke";
        stroke.commit(document, samePoint);
        EXPECT_EQ(steps(), before) << "no stroke, no step";
    }
    ImageDocument none;
    lead(stroke, {{10, 10}});
    stroke.commit(none, samePoint);
    EXPECT_TRUE(none.isEmpty());
}

TEST_F(Strokes, TranslucentEraserLaysItsColourOnEveryStamp) {
    eraserColor = 0x80000000u;
    useNib(0, 1);
    lead(eraser, {{10, 10}, {12, 10}});
    eraser.commit(document, samePoint);
    const Argb expected[] = {kPaper, 0xFF7F7F7Fu, 0xFF3F3F3Fu, 0xFF1F1F1Fu, 0xFF3F3F3Fu, 0xFF7F7F7Fu, kPaper};
    const Canvas erased = image();
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const Argb pixel = erased.pixels[10 * 60 + 8 + i];
        EXPECT_NEAR(double(redOf(pixel)), double(redOf(expected[i])), 1) << i;
        EXPECT_EQ(alphaOf(pixel), 255u);
    }
}

TEST_F(Strokes, WildPointsAndMappingsAreSurvived) {
    const auto away = [](IntPoint point) { return IntPoint{point.x * 32767, point.y * -32767}; };
    for (const int style : {0, 1, 2, 3, 4, 5}) {
        useNib(style, 11);
        lead(stroke, {{INT_MIN, INT_MAX}, {INT_MAX, INT_MIN}, {30, 25}, {INT_MAX, 25}});
        const Canvas seen = overlayOf(stroke);
        EXPECT_EQ(seen.pixels[25 * 60 + 32], kInk) << "style " << style;
        stroke.drawMarker(Canvas().view(), {INT_MIN, INT_MAX});
        stroke.commit(document, away);
    }
}

TEST_F(Strokes, WithoutMemoryPointsAreDropped) {
    useNib(4, 1);
    stroke.AppendPoint({1, 1});
    for (const long refused : {1, 2}) {
        FailingAllocator::arm(refused);
        bool grew = true;
        for (int x = 2; x < 40 && grew; ++x) grew = stroke.AppendPoint({x * int(refused), 1});
        ASSERT_TRUE(FailingAllocator::disarm());
        EXPECT_FALSE(grew);
    }
    EXPECT_TRUE(stroke.AppendPoint({45, 1})) << "the next one finds memory again";
    const std::vector<IntPoint> stamps = committedStamps(stroke);
    for (std::size_t i = 1; i < stamps.size(); ++i) ASSERT_EQ(std::abs(stamps[i].x - stamps[i - 1].x), 1);
    EXPECT_EQ(stamps.back(), (IntPoint{45, 1}));
}

}  // namespace
}  // namespace orvane
