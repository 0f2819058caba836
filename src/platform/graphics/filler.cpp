#include "platform/graphics/filler.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace orvane {
namespace {

constexpr double kLeastHeight = 1e-9;  // a piece of an outline that is flatter divides no area

}  // namespace

void AreaFiller::addPiece(double top, double topX, double bottom, double bottomX, int winding) {
    if (bottom <= top) return;
    SweepEdge edge;
    edge.top = top;
    edge.bottom = bottom;
    edge.topX = topX;
    edge.bottomX = bottomX;
    edge.slope = (bottomX - topX) / (bottom - top);
    edge.winding = winding;
    edges_.push_back(edge);
}

void AreaFiller::addEdge(PlanePoint from, PlanePoint to) {
    const int winding = from.y < to.y ? 1 : -1;
    if (winding < 0) std::swap(from, to);
    const double width = raster_.width, height = raster_.height;
    if (!(to.y - from.y >= kLeastHeight) || to.y <= 0 || from.y >= height ||
        (from.x >= width && to.x >= width)) {
        return;
    }

    const bool isInside =
        from.y >= 0 && to.y <= height && std::min(from.x, to.x) >= 0 && std::max(from.x, to.x) <= width;
    if (isInside) return addPiece(from.y, from.x, to.y, to.x, winding);

    const double slope = (to.x - from.x) / (to.y - from.y);
    const auto xAt = [&](double y) { return from.x + (y - from.y) * slope; };
    const auto yAt = [&](double x) { return from.y + (x - from.x) / slope; };
    double top = std::max(from.y, 0.0), bottom = std::min(to.y, height);
    double topX = top == from.y ? from.x : xAt(top), bottomX = bottom == to.y ? to.x : xAt(bottom);
    // Left of the raster an edge runs along the border instead, for all pixels are right of it. Right of the
    // raster it has nothing to tell.
    const auto cutAt = [&](double border, bool keptAlongBorder) {
        if ((topX - border) * (bottomX - border) >= 0) return;
        const double y = std::clamp(yAt(border), top, bottom);
        const bool topIsLeft = topX < border;
        if (keptAlongBorder) {
            topIsLeft ? addPiece(top, border, y, border, winding)
                      : addPiece(y, border, bottom, border, winding);
        }
        if (topIsLeft == keptAlongBorder) {
            top = y;
            topX = border;
        } else {
            bottom = y;
            bottomX = border;
        }
    };
    cutAt(0, true);
    cutAt(width, false);
    topX = std::max(topX, 0.0);
    bottomX = std::max(bottomX, 0.0);
    if (topX >= width && bottomX >= width) return;
    addPiece(top, topX, bottom, bottomX, winding);
}

void AreaFiller::fill(FillRule rule, CoverageSink& sink) {
    Sweep(edges_, rule, raster_.width).run(sink);
    edges_.clear();
}

}  // namespace orvane
