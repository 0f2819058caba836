#include "platform/graphics/shapes.h"

#include <cmath>
#include <new>

#include "platform/graphics/filler.h"
#include "platform/graphics/paint.h"
#include "platform/graphics/path_builder.h"
#include "platform/graphics/stroker.h"

namespace orvane {
namespace {

bool isInvisible(const Brush& brush) {
    const auto* const solid = std::get_if<SolidBrush>(&brush);
    return solid != nullptr && alphaOf(solid->colour) == 0;
}

// Runs a drawing, unless nothing of it can be seen. When memory runs out, it does so before the first pixel.
template <class Drawing>
void draw(MutablePixelView target, const Brush& brush, const Drawing& drawing) noexcept {
    if (!target || target.width <= 0 || target.height <= 0 || isInvisible(brush)) return;
    try {
        drawing(PlaneBox{0, 0, double(target.width), double(target.height)});
    } catch (const std::bad_alloc&) {
    }
}

template <class MakePath>
void outline(MutablePixelView target, const Pen& pen, const MakePath& makePath) noexcept {
    draw(target, pen.brush, [&](const PlaneBox& raster) {
        AreaFiller filler({target.width, target.height});
        addStroke(filler, makePath(PathBuilder(0.5, raster.grown(reachOf(pen)))), pen);
        BrushPainter painter(target, pen.brush);
        filler.fill(FillRule::Winding, painter);
    });
}

template <class MakePath>
void area(MutablePixelView target, const Brush& brush, const MakePath& makePath) noexcept {
    draw(target, brush, [&](const PlaneBox& raster) {
        AreaFiller filler({target.width, target.height});
        const Path path = makePath(PathBuilder(0, raster));
        const auto& points = path.points;
        filler.expect(points.size());
        for (std::size_t i = 0; i < points.size(); ++i) {
            filler.addEdge(points[i].position, points[i + 1 < points.size() ? i + 1 : 0].position);
        }
        BrushPainter painter(target, brush);
        filler.fill(FillRule::Alternate, painter);
    });
}

bool isArc(float start, float sweep) { return std::isfinite(start) && std::isfinite(sweep) && sweep != 0; }

// An undashed line as wide as an odd number of pixels covers whole pixels on its way along a rectangle.
bool coversWholePixels(const Pen& pen) { return pen.dash.count <= 0 && std::fmod(widthOf(pen), 2) == 1; }

void outlineInWholePixels(MutablePixelView target, const Pen& pen, IntRect box) noexcept {
    draw(target, pen.brush, [&](const PlaneBox&) {
        const double half = (widthOf(pen) - 1) / 2;
        const double left = box.x - half, right = double(box.x) + box.width + half + 1;
        const double top = box.y - half, bottom = double(box.y) + box.height + half + 1;
        const double width = widthOf(pen);
        BrushPainter painter(target, pen.brush);
        if (box.width <= width || box.height <= width) return painter.paintBlock(left, top, right, bottom);
        painter.paintBlock(left, top, right, top + width);
        painter.paintBlock(left, top + width, left + width, bottom - width);
        painter.paintBlock(right - width, top + width, right, bottom - width);
        painter.paintBlock(left, bottom - width, right, bottom);
    });
}

}  // namespace

void drawLine(MutablePixelView target, const Pen& pen, IntPoint from, IntPoint to) noexcept {
    const IntPoint points[] = {from, to};
    drawLines(target, pen, points);
}

void drawLines(MutablePixelView target, const Pen& pen, std::span<const IntPoint> points) noexcept {
    if (points.size() < 2) return;
    outline(target, pen, [&](const PathBuilder& build) { return build.polyline(points, PathEnds::Open); });
}

void drawCurve(MutablePixelView target, const Pen& pen, std::span<const IntPoint> points) noexcept {
    if (points.size() < 2) return;
    outline(target, pen, [&](const PathBuilder& build) { return build.spline(points, PathEnds::Open); });
}

void drawClosedCurve(MutablePixelView target, const Pen& pen, std::span<const IntPoint> points) noexcept {
    if (points.size() < 3) return;
    outline(target, pen, [&](const PathBuilder& build) { return build.spline(points, PathEnds::Closed); });
}

void drawPolygon(MutablePixelView target, const Pen& pen, std::span<const IntPoint> points) noexcept {
    if (points.size() < 2) return;
    outline(target, pen, [&](const PathBuilder& build) { return build.polyline(points, PathEnds::Closed); });
}

void drawBeziers(MutablePixelView target, const Pen& pen, std::span<const IntPoint> points) noexcept {
    if (points.size() < 4) return;
    outline(target, pen, [&](const PathBuilder& build) { return build.beziers(points); });
}

void drawRectangle(MutablePixelView target, const Pen& pen, IntRect box) noexcept {
    if (box.isEmpty()) return;
    if (coversWholePixels(pen)) return outlineInWholePixels(target, pen, box);
    outline(target, pen, [&](const PathBuilder& build) { return build.rectangle(box); });
}

void drawEllipse(MutablePixelView target, const Pen& pen, IntRect box) noexcept {
    if (box.isEmpty()) return;
    outline(target, pen, [&](const PathBuilder& build) { return build.arc(box, 0, 360); });
}

void drawArc(MutablePixelView target, const Pen& pen, IntRect box, float start, float sweep) noexcept {
    if (box.isEmpty() || !isArc(start, sweep)) return;
    outline(target, pen, [&](const PathBuilder& build) { return build.arc(box, start, sweep); });
}

void drawPie(MutablePixelView target, const Pen& pen, IntRect box, float start, float sweep) noexcept {
    if (box.isEmpty() || !isArc(start, sweep)) return;
    outline(target, pen, [&](const PathBuilder& build) { return build.pie(box, start, sweep); });
}

void fillRectangle(MutablePixelView target, const Brush& brush, IntRect box) noexcept {
    if (box.isEmpty()) return;
    draw(target, brush, [&](const PlaneBox&) {
        BrushPainter painter(target, brush);
        painter.paintBlock(box.x, box.y, double(box.x) + box.width, double(box.y) + box.height);
    });
}

void fillEllipse(MutablePixelView target, const Brush& brush, IntRect box) noexcept {
    if (box.isEmpty()) return;
    area(target, brush, [&](const PathBuilder& build) { return build.arc(box, 0, 360); });
}

void fillPie(MutablePixelView target, const Brush& brush, IntRect box, float start, float sweep) noexcept {
    if (box.isEmpty() || !isArc(start, sweep)) return;
    if (std::abs(sweep) >= 360) return fillEllipse(target, brush, box);
    area(target, brush, [&](const PathBuilder& build) { return build.pie(box, start, sweep); });
}

void fillPolygon(MutablePixelView target, const Brush& brush, std::span<const IntPoint> points) noexcept {
    if (points.size() < 3) return;
    area(target, brush, [&](const PathBuilder& build) { return build.polyline(points, PathEnds::Closed); });
}

void fillClosedCurve(MutablePixelView target, const Brush& brush, std::span<const IntPoint> points) noexcept {
    if (points.size() < 3) return;
    area(target, brush, [&](const PathBuilder& build) { return build.spline(points, PathEnds::Closed); });
}

}  // namespace orvane
