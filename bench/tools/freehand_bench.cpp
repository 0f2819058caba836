// Strokes of 10,000 mouse positions: drawn as a whole against OpenCV drawing the same figures, and the cost
// of a mouse move late in a stroke against one at its beginning.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include <opencv2/imgproc.hpp>

#include "support/ratio_timer.h"
#include "tools/brush_stroke_tool.h"
#include "tools/pencil_tool.h"
#include "tools/stamp_walk.h"

namespace {

using namespace orvane;
using namespace orvane::bench;

constexpr IntSize kView{1600, 1000};
constexpr int kPoints = 10000, kSize = 8;
constexpr const char* kStyles[] = {"horizontal bar", "falling bar", "vertical bar",
                                   "rising bar",     "square",      "circle"};

/// A scribble over the whole view with about six pixels between two points.
std::vector<IntPoint> scribble() {
    std::vector<IntPoint> points;
    for (int i = 0; i < kPoints; ++i) {
        const double turn = i * 0.0081, wobble = i * 0.000137;
        points.push_back(
            {800 + int(750 * std::sin(turn) * std::cos(wobble)), 500 + int(470 * std::cos(turn * 1.013))});
    }
    return points;
}

struct Scene {
    Scene() {
        pen.width = 3;
        freehand.brushSize = kSize;
    }
    MutablePixelView view() { return {pixels.data(), kView.width, kView.height, kView.width}; }
    cv::Mat matrix() { return {kView.height, kView.width, CV_8UC4, pixels.data()}; }

    PenSettings pen;
    BrushSettings brush;
    FreehandSettings freehand;
    std::vector<Argb> pixels = std::vector<Argb>(std::size_t(kView.width) * kView.height, 0xFFFFFFFFu);
    std::vector<IntPoint> points = scribble();
};

cv::Point at(IntPoint p, IntPoint offset = {}) { return {p.x + offset.x, p.y + offset.y}; }

void sweepByPeer(cv::Mat target, IntPoint from, IntPoint to, IntPoint reach, const cv::Scalar& colour) {
    const IntPoint back{-reach.x, -reach.y};
    cv::line(target, at(from), at(to), colour);
    const cv::Point swept[] = {at(from, reach), at(from, back), at(to, back), at(to, reach)};
    cv::fillConvexPoly(target, swept, 4, colour, cv::LINE_AA);
}

void strokeByPeer(Scene& scene, int style) {
    constexpr IntPoint kReach[] = {{kSize, 0}, {kSize, kSize}, {0, kSize}, {kSize, -kSize}};
    const cv::Scalar colour(42, 42, 165, 255);
    cv::Mat target = scene.matrix();
    for (std::size_t i = 1; i < scene.points.size(); ++i) {
        const IntPoint from = scene.points[i - 1], to = scene.points[i];
        if (style < 4) {
            sweepByPeer(target, from, to, kReach[style], colour);
            continue;
        }
        const StampWalk walk(from, to);
        for (int step = 1; step <= walk.steps(); ++step) {
            const cv::Point centre = at(walk.at(step));
            if (style == 4) {
                cv::rectangle(target, centre - cv::Point(kSize, kSize), centre + cv::Point(kSize, kSize),
                              colour, cv::FILLED);
            } else {
                cv::circle(target, centre, kSize, colour, cv::FILLED, cv::LINE_AA);
            }
        }
    }
}

void wholeStroke(Scene& scene, int style) {
    scene.freehand.brushStyle = style;
    BrushStrokeTool tool(scene.pen, scene.brush, scene.freehand);
    for (const IntPoint point : scene.points) tool.AppendPoint(point);
    const std::string name = std::string("whole stroke, ") + kStyles[style];
    printRatioRow(name.c_str(),
                  measureRatio([&] { tool.Draw(scene.view()); }, [&] { strokeByPeer(scene, style); }));
}

/// Milliseconds of one mouse move: the point and the pieces it adds.
void lateMoves(Scene& scene, int style) {
    scene.freehand.brushStyle = style;
    const auto moves = [&](BrushStrokeTool& tool, int count) {
        for (int i = 0; i < count; ++i) {
            const std::size_t drawn = tool.trailLength();
            tool.AppendPoint(scene.points[std::size_t(i)]);
            tool.drawTrail(scene.view(), drawn, tool.trailLength());
        }
    };
    BrushStrokeTool late(scene.pen, scene.brush, scene.freehand);
    for (int i = 0; i < 10; ++i) moves(late, kPoints);
    const std::string name = std::string("1000 moves after 100,000 / at first, ") + kStyles[style];
    printRatioRow(name.c_str(), measureRatio([&] { moves(late, 1000); },
                                             [&] {
                                                 BrushStrokeTool early(scene.pen, scene.brush,
                                                                       scene.freehand);
                                                 moves(early, 1000);
                                             }));
}

void pencil(Scene& scene) {
    PencilTool tool(scene.pen, scene.brush);
    std::vector<cv::Point> points;
    for (const IntPoint point : scene.points) {
        tool.AppendPoint(point);
        points.push_back(at(point));
    }
    printRatioRow("pencil trail, width 3", measureRatio([&] { tool.Draw(scene.view()); },
                                                        [&] {
                                                            cv::polylines(scene.matrix(), points, false,
                                                                          cv::Scalar(0, 0, 255, 255), 3,
                                                                          cv::LINE_AA);
                                                        }));
}

}  // namespace

int main() {
    cv::setNumThreads(1);
    Scene scene;
    std::printf("%d points, nib size %d, view of %d x %d\n", kPoints, kSize, kView.width, kView.height);
    printRatioHeader();
    for (int style = 0; style < 6; ++style) wholeStroke(scene, style);
    for (const int style : {0, 4, 5}) lateMoves(scene, style);
    pencil(scene);
}
