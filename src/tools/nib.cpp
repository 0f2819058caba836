#include "tools/nib.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "platform/graphics/filler.h"
#include "platform/graphics/paint.h"
#include "platform/graphics/shapes.h"
#include "tools/grab_handle.h"

namespace orvane {
namespace {

struct Bar {
    IntPoint begin, end;
};

// The ends of the bars of size 1, by shape.
constexpr Bar kBars[] = {{{-1, 0}, {1, 0}}, {{-1, -1}, {1, 1}}, {{0, -1}, {0, 1}}, {{1, -1}, {-1, 1}}};

Bar barAround(const Nib& nib, IntPoint centre) noexcept {
    const Bar& unit = kBars[static_cast<int>(nib.shape)];
    return {{centre.x + nib.size * unit.begin.x, centre.y + nib.size * unit.begin.y},
            {centre.x + nib.size * unit.end.x, centre.y + nib.size * unit.end.y}};
}

PlanePoint onPlane(IntPoint point) noexcept { return {double(point.x), double(point.y)}; }

// How wide the strip is that a bar of this reach sweeps from one point to another.
double stripWidth(PlanePoint reach, PlanePoint from, PlanePoint to) noexcept {
    return std::fabs(cross(reach, to - from)) / length(reach);
}

// All strips go round the same way, so that those that overlap count as one area.
void addStrip(AreaFiller& filler, PlanePoint reach, PlanePoint from, PlanePoint to) {
    if (cross(reach, to - from) < 0) return addStrip(filler, reach, to, from);
    const PlanePoint corners[] = {from - reach, from + reach, to + reach, to - reach};
    for (int i = 0; i < 4; ++i) filler.addEdge(corners[i], corners[(i + 1) % 4]);
}

// A pixel that the bar's last position cuts lies within this distance of it.
constexpr double kSeam = 2.0;

void addEndOfWay(AreaFiller& filler, PlanePoint reach, std::span<const IntPoint> way) {
    double missing = kSeam;
    for (std::size_t i = way.size() - 1; i > 0 && missing > 0; --i) {
        const PlanePoint from = onPlane(way[i - 1]), to = onPlane(way[i]);
        const double width = stripWidth(reach, from, to);
        if (width <= 0) continue;
        addStrip(filler, reach, to + (from - to) * std::min(1.0, missing / width), to);
        missing -= width;
    }
}

// Dots begin half a pixel into the line, where the first whole pixel does.
Pen dottedPen() noexcept {
    Pen pen(kBlack);
    pen.dash = {{1.0f, 1.0f}, 2};
    pen.dashOffset = 0.5f;
    return pen;
}

}  // namespace

void drawNibBar(MutablePixelView target, const Nib& nib, IntPoint centre) noexcept {
    const Bar bar = barAround(nib, centre);
    drawLine(target, Pen(nib.colour), bar.begin, bar.end);
}

void drawNibSweep(MutablePixelView target, const Nib& nib, std::span<const IntPoint> way) noexcept {
    const std::size_t last = way.size() - 1;
    const PlanePoint from = onPlane(way[last - 1]), to = onPlane(way[last]);
    drawLine(target, Pen(nib.colour), way[last - 1], way[last]);
    const PlanePoint reach = onPlane(barAround(nib, {}).end);
    if (!target || stripWidth(reach, from, to) <= 0) return;
    try {
        const Brush colour = SolidBrush{nib.colour};
        AreaFiller filler({target.width, target.height});
        addStrip(filler, reach, from, to);
        addEndOfWay(filler, reach, way.first(last));
        BrushPainter painter(target, colour);
        filler.fill(FillRule::Winding, painter);
    } catch (const std::bad_alloc&) {
        // This piece of the stroke is missing.
    }
}

void drawDottedCross(MutablePixelView target, IntPoint centre, int reach, CrossLines lines) noexcept {
    const auto [x, y] = centre;
    const Pen pen = dottedPen();
    if (lines.vertical) drawLine(target, pen, {x, y - reach}, {x, y + reach + 1});
    if (lines.horizontal) drawLine(target, pen, {x - reach, y}, {x + reach + 1, y});
}

}  // namespace orvane
