#include "platform/graphics/shapes.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>

#include "platform/graphics/fill.h"
#include "support/canvas.h"
#include "support/failing_allocator.h"

namespace orvane {
namespace {

using test::Canvas;
using Rows = std::vector<std::string>;

constexpr Argb kOpaque = 0xFF102030u;
constexpr int kFar = std::numeric_limits<int>::max(), kFarBack = std::numeric_limits<int>::min();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN(),
                kInfinity = std::numeric_limits<float>::infinity();

Pen dashed(float width, std::initializer_list<float> lengths, float offset = 0) {
    Pen pen(kOpaque, width);
    for (float length : lengths) pen.dash.lengths[std::size_t(pen.dash.count++)] = length;
    pen.dashOffset = offset;
    return pen;
}

/// What a drawing leaves on a canvas of this size.
template <class Drawing>
Canvas drawn(int width, int height, const Drawing& drawing) {
    Canvas canvas(width, height);
    drawing(canvas.view());
    return canvas;
}

int largestDifference(const Canvas& a, const Canvas& b) {
    int largest = 0;
    for (std::size_t i = 0; i < a.pixels().size(); ++i) {
        largest = std::max(largest, std::abs(int(alphaOf(a.pixels()[i])) - int(alphaOf(b.pixels()[i]))));
    }
    return largest;
}

TEST(Shapes, LinesRunThroughPixelCentresAndEndFlat) {
    const struct {
        float width;
        IntPoint from, to;
        Rows rows;
    } cases[] = {
        {1, {1, 1}, {5, 1}, {".......", ".+###+.", ".......", "......."}},
        {1, {5, 1}, {1, 1}, {".......", ".+###+.", ".......", "......."}},
        {1, {2, 0}, {2, 2}, {"..+....", "..#....", "..+....", "......."}},
        {3, {1, 1}, {5, 1}, {".+###+.", ".+###+.", ".+###+.", "......."}},
        {2, {1, 1}, {5, 1}, {".,+++,.", ".+###+.", ".,+++,.", "......."}},
        {0.2f, {1, 1}, {5, 1}, {".......", ".+###+.", ".......", "......."}},
        {kNaN, {1, 1}, {5, 1}, {".......", ".+###+.", ".......", "......."}},
        {1, {3, 2}, {3, 2}, {".......", ".......", ".......", "......."}},
        {1, {kFarBack, 1}, {kFar, 1}, {".......", "#######", ".......", "......."}},
        {3, {3, kFar}, {3, kFarBack}, {"..###..", "..###..", "..###..", "..###.."}},
        {kInfinity, {kFarBack, 1}, {kFar, 1}, {"#######", "#######", "#######", "#######"}},
    };
    for (const auto& c : cases) {
        const Canvas canvas =
            drawn(7, 4, [&](auto view) { drawLine(view, Pen(kOpaque, c.width), c.from, c.to); });
        EXPECT_EQ(canvas.rows(), c.rows) << "width " << c.width << " from " << c.from.x << ", " << c.from.y;
    }
}

TEST(Shapes, RectanglesAreOutlinedOnBothSidesOfTheirBox) {
    const struct {
        float width;
        IntRect box;
        Rows rows;
    } cases[] = {
        {1, {1, 1, 4, 2}, {".......", ".#####.", ".#...#.", ".#####.", "......."}},
        {1, {1, 1, 1, 1}, {".......", ".##....", ".##....", ".......", "......."}},
        {3, {1, 1, 4, 2}, {"#######", "#######", "#######", "#######", "#######"}},
        {2, {2, 2, 4, 4}, {".......", ".,+++++", ".+#####", ".+#*+*#", ".+#+.+#"}},
        {1, {kFarBack, 2, kFar, 1}, {".......", ".......", ".......", ".......", "......."}},
        {1,
         {-2000000000, 1, 2000000003, 2000000000},
         {".......", "####...", "...#...", "...#...", "...#..."}},
    };
    for (const auto& c : cases) {
        const Canvas canvas =
            drawn(7, 5, [&](auto view) { drawRectangle(view, Pen(kOpaque, c.width), c.box); });
        EXPECT_EQ(canvas.rows(), c.rows) << "width " << c.width << " box " << c.box.x << ", " << c.box.y;
    }
}

TEST(Shapes, RectanglesAreThePolygonsOfTheirCorners) {
    std::mt19937 random(1);
    for (int i = 0; i < 200; ++i) {
        const IntRect box{int(random() % 60) - 20, int(random() % 60) - 20, 1 + int(random() % 30),
                          1 + int(random() % 30)};
        const IntPoint corners[] = {
            {box.x, box.y}, {box.right(), box.y}, {box.right(), box.bottom()}, {box.x, box.bottom()}};
        const Pen pen(0x80102030u, 0.5f * float(2 + random() % 10));
        EXPECT_EQ(drawn(40, 40, [&](auto view) { drawRectangle(view, pen, box); }).pixels(),
                  drawn(40, 40, [&](auto view) { drawPolygon(view, pen, corners); }).pixels())
            << "width " << pen.width << " box " << box.x << ", " << box.y << ", " << box.width << " x "
            << box.height;
        EXPECT_EQ(drawn(40, 40, [&](auto view) { fillRectangle(view, pen.brush, box); }).pixels(),
                  drawn(40, 40, [&](auto view) { fillPolygon(view, pen.brush, corners); }).pixels());
    }
}

TEST(Shapes, AreasCoverWholePixels) {
    const SolidBrush brush{kOpaque};
    const IntPoint square[] = {{1, 1}, {4, 1}, {4, 3}, {1, 3}};
    EXPECT_EQ(drawn(6, 4, [&](auto view) { fillPolygon(view, brush, square); }).rows(),
              (Rows{"......", ".###..", ".###..", "......"}));
    const IntPoint diamond[] = {{2, 0}, {4, 2}, {2, 4}, {0, 2}};
    EXPECT_EQ(drawn(6, 4, [&](auto view) { fillPolygon(view, brush, diamond); }).rows(),
              (Rows{".++...", "+##+..", "+##+..", ".++..."}));
    // A square within a square, joined by a line there and back: what is enclosed twice is outside.
    const IntPoint ring[] = {{0, 0}, {6, 0}, {6, 4}, {0, 4}, {0, 0}, {2, 1}, {4, 1}, {4, 3}, {2, 3}, {2, 1}};
    EXPECT_EQ(drawn(6, 4, [&](auto view) { fillPolygon(view, brush, ring); }).rows(),
              (Rows{"######", "##..##", "##..##", "######"}));
}

TEST(Shapes, CoverageAddsUpToTheArea) {
    const SolidBrush brush{kOpaque};
    const double pi = std::acos(-1);
    const IntPoint triangle[] = {{3, 5}, {190, 33}, {40, 140}};
    const IntRect box{10, 20, 160, 90};
    const struct {
        const char* name;
        Canvas canvas;
        double area;
    } cases[] = {
        {"triangle", drawn(200, 150, [&](auto v) { fillPolygon(v, brush, triangle); }), 12104.5},
        {"ellipse", drawn(200, 150, [&](auto v) { fillEllipse(v, brush, box); }), pi * 80 * 45},
        {"pie", drawn(200, 150, [&](auto v) { fillPie(v, brush, box, 180, 90); }), pi * 80 * 45 / 4},
        {"ellipse, width 5",
         drawn(200, 150,
               [&](auto v) {
                   drawEllipse(v, Pen(kOpaque, 5), {20, 20, 100, 100});
               }),
         pi * (52.5 * 52.5 - 47.5 * 47.5)},
        {"diagonal",
         drawn(200, 150,
               [&](auto v) {
                   drawLine(v, Pen(kOpaque, 3), {10, 10}, {130, 60});
               }),
         390},
        {"arc",
         drawn(200, 150,
               [&](auto v) {
                   drawArc(v, Pen(kOpaque, 4), {20, 20, 100, 100}, 30, 60);
               }),
         pi / 6 * (52 * 52 - 48 * 48)},
    };
    for (const auto& c : cases) EXPECT_NEAR(c.canvas.coveredArea(), c.area, c.area * 2e-4 + 0.3) << c.name;
}

TEST(Shapes, EllipsesTouchAllSidesOfTheirBox) {
    for (int size : {1, 2, 5, 8, 31}) {
        const Canvas pen = drawn(40, 40, [&](auto v) { drawEllipse(v, Pen(kOpaque), {3, 4, size, size}); });
        const Canvas area = drawn(40, 40, [&](auto v) {
            fillEllipse(v, SolidBrush{kOpaque}, {3, 4, size, size});
        });
        for (const auto& [canvas, end] : {std::pair{&pen, 3 + size}, {&area, 2 + size}}) {
            const int middle = 4 + size / 2;
            EXPECT_GT(canvas->coverage(3, middle), 100) << size;
            EXPECT_EQ(canvas->coverage(2, middle), 0) << size;
            EXPECT_GT(canvas->coverage(end, middle), 100) << size;
            EXPECT_EQ(canvas->coverage(end + 1, middle), 0) << size;
        }
    }
}

TEST(Shapes, OneCallPaintsEveryPixelOnce) {
    constexpr Argb kHalf = 0x80FF8040u;
    const IntPoint knot[] = {{5, 5},   {55, 35}, {55, 5}, {5, 35}, {30, 0},
                             {30, 40}, {31, 0},  {5, 5},  {55, 35}};
    const struct {
        const char* name;
        Canvas canvas;
    } cases[] = {
        {"lines", drawn(60, 40, [&](auto v) { drawLines(v, Pen(kHalf, 7), knot); })},
        {"curve", drawn(60, 40, [&](auto v) { drawCurve(v, Pen(kHalf, 7), knot); })},
        {"narrow ellipse", drawn(60, 40,
                                 [&](auto v) {
                                     drawEllipse(v, Pen(kHalf, 12), {10, 10, 40, 4});
                                 })},
        {"pie", drawn(60, 40,
                      [&](auto v) {
                          drawPie(v, Pen(kHalf, 7), {5, 5, 50, 30}, 20, 360);
                      })},
    };
    for (const auto& c : cases) {
        int whole = 0;
        for (Argb p : c.canvas.pixels()) {
            ASSERT_LE(alphaOf(p), 0x80u) << c.name;
            ASSERT_EQ(p & 0xFFFFFFu, p == 0 ? 0 : kHalf & 0xFFFFFFu) << c.name;  // no dark fringe either
            whole += alphaOf(p) == 0x80u ? 1 : 0;
        }
        EXPECT_GT(whole, 50) << c.name;
    }
}

TEST(Shapes, BrushesColourAreasAndOutlinesFromTheTargetsCorner) {
    const HatchBrush hatch{HatchBrush::kForwardDiagonal, 0xFFFFFFFFu, 0x80FF0000u};
    std::vector<Argb> colours(40 * 30);
    for (int y = 0; y < 30; ++y) brushRow(hatch, 0, y, 40, &colours[std::size_t(y) * 40]);
    Pen pen(0, 5);
    pen.brush = hatch;
    const Canvas canvases[] = {
        drawn(40, 30,
              [&](auto v) {
                  fillRectangle(v, hatch, {3, 4, 30, 20});
              }),
        drawn(40, 30,
              [&](auto v) {
                  fillEllipse(v, hatch, {3, 4, 30, 20});
              }),
        drawn(40, 30,
              [&](auto v) {
                  drawEllipse(v, pen, {3, 4, 30, 20});
              }),
    };
    for (const Canvas& canvas : canvases) {
        EXPECT_GT(canvas.coveredArea(), 100);
        for (std::size_t i = 0; i < colours.size(); ++i) {
            const Argb p = canvas.pixels()[i];
            ASSERT_EQ(p & 0xFFFFFFu, p == 0 ? 0 : colours[i] & 0xFFFFFFu);
            ASSERT_LE(alphaOf(p), alphaOf(colours[i]));
        }
    }
    EXPECT_EQ(canvases[0].at(10, 10), colours[10 * 40 + 10]);
}

TEST(Shapes, MitresReachTenWidthsAndAreCutOffBeyond) {
    // Both lines leave the tip at (100, 50); the limit lies at 11.5 degrees between them.
    for (const auto& [opening, isMitred] : {std::pair{22, true}, {19, false}}) {
        const IntPoint points[] = {{0, 50}, {100, 50}, {0, 50 - opening}};
        const Canvas canvas = drawn(140, 80, [&](auto v) { drawLines(v, Pen(kOpaque, 4), points); });
        bool reaches = false;
        for (int y = 0; y < 80; ++y) reaches = reaches || canvas.coverage(110, y) > 0;
        EXPECT_EQ(reaches, isMitred) << opening;
    }
}

TEST(Shapes, DashesFollowTheirPattern) {
    const struct {
        const char* name;
        Pen pen;
        IntPoint to;
        std::string row;
    } cases[] = {
        {"on and off", dashed(1, {2, 3}), {14, 0}, "+#+..+#+..+#+..."},
        {"cut off by the end", dashed(1, {2, 3}), {11, 0}, "+#+..+#+..++...."},
        {"begun later", dashed(1, {2, 3}, 1), {14, 0}, "++..+#+..+#+...."},
        {"begun earlier", dashed(1, {2, 3}, -1), {14, 0}, ".+#+..+#+..+#+.."},
        {"offset of many periods", dashed(1, {2, 3}, 5e6f), {14, 0}, "+#+..+#+..+#+..."},
        {"offset no number", dashed(1, {2, 3}, kNaN), {14, 0}, "+#+..+#+..+#+..."},
        {"odd count", dashed(1, {3, 1, 1}), {14, 0}, "+##+++..+++##+.."},
        {"empty gap", dashed(1, {1, 0, 1, 3}), {14, 0}, "+#+..+#+..+#+..."},
        {"empty dash", dashed(1, {0, 3, 2, 0}), {14, 0}, "...+#+..+#+..++."},
        {"only gaps", dashed(1, {0, 3}), {14, 0}, "................"},
        {"no gaps", dashed(1, {3, 0}), {14, 0}, "+#############+."},
        {"nothing", dashed(1, {0, 0}), {14, 0}, "+#############+."},
        {"too fine", dashed(1, {1e-9f, 1e-9f}), {14, 0}, "+#############+."},
        {"negative", dashed(1, {-1, 3}), {14, 0}, "................"},
        {"endless dash", dashed(1, {kInfinity, 3}), {14, 0}, "+#############+."},
        {"to the end of the world", dashed(1, {2, 3}), {kFar, 0}, "+#+..+#+..+#+..+"},
    };
    for (const auto& c : cases) {
        const Canvas canvas = drawn(16, 1, [&](auto v) { drawLine(v, c.pen, {0, 0}, c.to); });
        EXPECT_EQ(canvas.rows()[0], c.row) << c.name;
    }
    const Canvas fromAfar = drawn(16, 1, [&](auto v) {
        drawLine(v, dashed(1, {2, 3}), {-2000000000, 0}, {2000000000, 0});
    });
    EXPECT_EQ(fromAfar.rows()[0], "+#+..+#+..+#+..+");
}

TEST(Shapes, DashesGoRoundCornersAndMeetAtTheStart) {
    // 24 pixels round: the last dash goes on as the first, and both lie round a corner.
    const Canvas canvas = drawn(10, 7, [](auto v) { drawRectangle(v, dashed(1, {6, 6}, 2), {1, 1, 8, 4}); });
    EXPECT_EQ(canvas.rows(), (Rows{"..........", ".####+....", ".#........", ".+.......+", ".........#",
                                   ".....+####", ".........."}));
}

TEST(Shapes, AnglesAreThoseOfRaysNotOfTheEllipse) {
    const IntRect box{0, 0, 160, 40};  // centre (80, 20)
    const Canvas pie = drawn(160, 40, [&](auto v) { fillPie(v, SolidBrush{kOpaque}, box, 0, 45); });
    EXPECT_EQ(pie.coverage(90, 25), 255);  // below the positive x axis, above the diagonal
    EXPECT_EQ(pie.coverage(90, 33), 0);
    EXPECT_EQ(pie.coverage(90, 15), 0);
    EXPECT_EQ(pie.coverage(70, 25), 0);
    for (int y = 21; y < 38; ++y) EXPECT_EQ(pie.coverage(60 + y, y), 128) << "on the diagonal at " << y;
}

TEST(Shapes, SweepsTurnBothWaysAndOnceRoundAtMost) {
    const IntRect box{5, 5, 70, 50};
    const Pen pen(kOpaque, 3);
    const auto pie = [&](float start, float sweep) {
        return drawn(90, 70, [&](auto v) { fillPie(v, SolidBrush{kOpaque}, box, start, sweep); });
    };
    const auto arc = [&](float start, float sweep) {
        return drawn(90, 70, [&](auto v) { drawArc(v, pen, box, start, sweep); });
    };
    EXPECT_LE(largestDifference(pie(30, 100), pie(130, -100)), 1);
    EXPECT_LE(largestDifference(pie(30, 100), pie(30 + 720, 100)), 1);
    EXPECT_LE(largestDifference(arc(-200, 300), arc(100, -300)), 1);
    const Canvas ellipse = drawn(90, 70, [&](auto v) { drawEllipse(v, pen, box); });
    for (float sweep : {360.0f, -360.0f, 1000.0f, -1e30f}) {
        EXPECT_LE(largestDifference(arc(0, sweep), ellipse), 1) << sweep;
        EXPECT_LE(largestDifference(arc(77, sweep), ellipse), 1) << sweep;
    }
    // The outline of a whole pie has its spoke.
    const Canvas whole = drawn(90, 70, [&](auto v) { drawPie(v, pen, box, 0, 360); });
    EXPECT_EQ(whole.coverage(60, 30), 255);
    EXPECT_EQ(whole.coverage(20, 30), 0);
}

TEST(Shapes, NothingToDrawDrawsNothing) {
    const Pen pen(kOpaque, 3);
    const SolidBrush brush{kOpaque};
    const std::vector<IntPoint> one(1, {5, 5}), same(4, {5, 5}), two = {{1, 1}, {9, 9}};
    const IntRect box{2, 2, 6, 6}, flat{2, 2, 6, 0}, inverted{8, 8, -6, -6};
    const Canvas canvas = drawn(12, 12, [&](MutablePixelView v) {
        drawLines(v, pen, one);
        for (const auto& draw : {drawLines, drawCurve, drawClosedCurve, drawPolygon, drawBeziers}) {
            draw(v, pen, {});
            draw(v, pen, same);
        }
        drawClosedCurve(v, pen, two);
        drawBeziers(v, pen, std::span(same).first(3));
        fillPolygon(v, brush, two);
        fillClosedCurve(v, brush, two);
        fillPolygon(v, brush, same);
        for (IntRect empty : {flat, inverted}) {
            drawRectangle(v, pen, empty);
            drawEllipse(v, pen, empty);
            drawArc(v, pen, empty, 0, 90);
            drawPie(v, pen, empty, 0, 90);
            fillRectangle(v, brush, empty);
            fillEllipse(v, brush, empty);
            fillPie(v, brush, empty, 0, 90);
        }
        for (float angle : {kNaN, kInfinity, -kInfinity}) {
            drawArc(v, pen, box, angle, 90);
            drawPie(v, pen, box, 0, angle);
            fillPie(v, brush, box, angle, angle);
        }
        drawArc(v, pen, box, 10, 0);
        drawEllipse(v, Pen(0x00FFFFFFu, 3), box);
        drawEllipse({}, pen, box);
        fillRectangle({v.pixels, 0, 0, 0}, brush, box);
    });
    EXPECT_TRUE(canvas.isUntouched());
}

/// A shape of any kind at random, partly outside of the usual canvas, ready to be drawn.
class RandomShape {
 public:
    explicit RandomShape(unsigned seed) : kind_(seed % 11) {
        std::mt19937 random(seed);
        for (IntPoint& p : points_) p = {int(random() % 200) - 20, int(random() % 160) - 20};
        pen_.width = 1 + 0.25f * float(random() % 40);
        if (seed % 2 == 0) pen_.dash = dashed(1, {3, 1.3f, 0.7f, 1}).dash;
        box_ = {points_[0].x, points_[0].y, 1 + int(random() % 90), 1 + int(random() % 90)};
        start_ = float(random() % 720);
        sweep_ = float(random() % 700) - 350;
    }
    void shift(int x, int y) {
        for (IntPoint& p : points_) p = {p.x + x, p.y + y};
        box_ = {box_.x + x, box_.y + y, box_.width, box_.height};
    }
    void draw(MutablePixelView view) const {
        switch (kind_) {
            case 0:
                return drawLines(view, pen_, points_);
            case 1:
                return drawCurve(view, pen_, points_);
            case 2:
                return drawClosedCurve(view, pen_, points_);
            case 3:
                return drawPolygon(view, pen_, points_);
            case 4:
                return drawBeziers(view, pen_, points_);
            case 5:
                return drawEllipse(view, pen_, box_);
            case 6:
                return drawPie(view, pen_, box_, start_, sweep_);
            case 7:
                return drawArc(view, pen_, box_, start_, sweep_);
            case 8:
                return fillPolygon(view, pen_.brush, points_);
            case 9:
                return fillClosedCurve(view, pen_.brush, points_);
            default:
                return fillPie(view, pen_.brush, box_, start_, sweep_);
        }
    }
    [[nodiscard]] bool isDashed() const { return pen_.dash.count > 0; }

 private:
    unsigned kind_;
    std::array<IntPoint, 7> points_;
    Pen pen_{kOpaque};
    IntRect box_;
    float start_, sweep_;
};

TEST(Shapes, WhatIsCutOffDoesNotChangeTheRest) {
    constexpr Argb kGuard = 0x5AC35AC3u;
    for (unsigned seed = 0; seed < 220; ++seed) {
        RandomShape shape(seed);
        Canvas large(200, 160), surroundings(100, 80);
        shape.draw(large.view());
        const IntRect part{45 + int(seed % 5), 37, 70 + int(seed % 9), 61};
        fillRect(surroundings.view(), {0, 0, 100, 80}, kGuard);
        const MutablePixelView small = subView(surroundings.view(), {9, 9, part.width, part.height});
        fillRect(small, {0, 0, part.width, part.height}, 0);
        shape.shift(-part.x, -part.y);
        shape.draw(small);
        // Invisible bends are measured less closely, which may move the dashes behind them a little.
        const int tolerance = shape.isDashed() ? 6 : 1;
        for (int y = 0; y < part.height; ++y) {
            for (int x = 0; x < part.width; ++x) {
                ASSERT_NEAR(int(alphaOf(small.at(x, y))), large.coverage(part.x + x, part.y + y), tolerance)
                    << "shape " << seed << " at " << x << ", " << y;
            }
        }
        fillRect(small, {0, 0, part.width, part.height}, kGuard);
        for (Argb p : surroundings.pixels()) ASSERT_EQ(p, kGuard) << "shape " << seed;
    }
}

// So many crossings in a row that it is sampled: nothing may leak out of it, and nothing be missing inside.
TEST(Shapes, CrowdedRowsStayWithinTheirBounds) {
    std::mt19937 random(3);
    std::vector<IntPoint> points(3000);
    for (IntPoint& p : points) p = {int(random() % 60) + 10, int(random() % 40) + 5};
    const Canvas lines = drawn(80, 50, [&](auto v) { drawLines(v, Pen(kOpaque), points); });
    const Canvas polygon = drawn(80, 50, [&](auto v) { fillPolygon(v, SolidBrush{kOpaque}, points); });
    for (int y = 0; y < 50; ++y) {
        for (int x = 0; x < 80; ++x) {
            if (x < 10 || x >= 70 || y < 5 || y >= 45) {
                ASSERT_EQ(polygon.coverage(x, y), 0) << x << ", " << y;
            } else if (x > 20 && x < 60 && y > 15 && y < 35) {
                ASSERT_NEAR(polygon.coverage(x, y), 128, 60) << x << ", " << y;
                ASSERT_EQ(lines.coverage(x, y), 255) << x << ", " << y;
            }
        }
    }
}

TEST(Shapes, CoordinatesMayBeAnything) {
    std::mt19937 random(7);
    const auto anywhere = [&] {
        const int kind = int(random() % 4);
        return kind == 0   ? kFar
               : kind == 1 ? kFarBack
               : kind == 2 ? int(random())
                           : int(random() % 300) - 100;
    };
    Canvas canvas(61, 47);
    for (int i = 0; i < 400; ++i) {
        std::vector<IntPoint> points(3 + random() % 6);
        for (IntPoint& p : points) p = {anywhere(), anywhere()};
        Pen pen = dashed(1 + float(random() % 9), {3, 1, 0.01f});
        if (i % 3 == 0) pen.dash = {};
        if (i % 7 == 0) pen.width = 3e38f;
        const IntRect box{anywhere(), anywhere(), anywhere(), anywhere()};
        for (const auto& draw : {drawLines, drawCurve, drawClosedCurve, drawPolygon, drawBeziers}) {
            draw(canvas.view(), pen, points);
        }
        fillPolygon(canvas.view(), pen.brush, points);
        fillClosedCurve(canvas.view(), pen.brush, points);
        drawRectangle(canvas.view(), pen, box);
        drawEllipse(canvas.view(), pen, box);
        drawPie(canvas.view(), pen, box, float(random()), float(random() % 400));
        fillRectangle(canvas.view(), pen.brush, box);
        fillEllipse(canvas.view(), pen.brush, box);
    }
    // A circle of a radius beyond all bounds is a straight line here: its box ends right of column 20.
    const Canvas edge = drawn(30, 3, [&](auto v) {
        fillEllipse(v, SolidBrush{kOpaque}, {-2000000000 + 20, -1000000000 + 1, 2000000000, 2000000000});
    });
    EXPECT_EQ(edge.rows()[1], "####################..........");
}

TEST(Shapes, MemoryThatRunsOutLeavesTheDrawingMissing) {
    for (unsigned seed = 0; seed < 11; ++seed) {
        const RandomShape shape(seed);
        Canvas canvas(200, 160);
        bool refused = true;
        for (long n = 1; refused; ++n) {
            ASSERT_TRUE(canvas.isUntouched()) << "shape " << seed << ", allocation " << n - 1;
            FailingAllocator::arm(n);
            shape.draw(canvas.view());
            refused = FailingAllocator::disarm();
        }
        EXPECT_FALSE(canvas.isUntouched()) << seed;
    }
}

}  // namespace
}  // namespace orvane
