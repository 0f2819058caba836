#include "tools/stroke_tool.h"

#include <algorithm>
#include <array>
#include <new>

#include "tools/image_commit.h"
#include "tools/nib_stamp.h"
#include "tools/stamp_walk.h"

namespace orvane {
namespace {

constexpr auto kUnmapped = [](IntPoint point) noexcept { return point; };

}  // namespace

void StrokeTool::Reset() noexcept {
    FreehandTool::Reset();
    stampEnds_ = std::vector<std::size_t>();
    ++stroke_;
}

bool StrokeTool::AppendPoint(IntPoint point) noexcept {
    if (!FreehandTool::AppendPoint(point)) return false;
    const std::size_t count = points().size();
    try {
        stampEnds_.push_back(count == 1
                                 ? 1
                                 : stampEnds_.back() +
                                       std::size_t(StampWalk(points()[count - 2], points().back()).steps()));
    } catch (const std::bad_alloc&) {
        dropLastPoint();
        return false;
    }
    return count > 1;
}

void StrokeTool::Draw(MutablePixelView view) noexcept {
    drawTrail(view, 0, trailLength());
    drawBeyondTrail(view);
}

void StrokeTool::commit(ImageDocument& document, PointMap toImage) noexcept {
    if (!points().empty()) {
        drawIntoImage(document, [&](MutablePixelView image) {
            drawPieces(image, 0, trailLength(), toImage);
            drawFirstBar(image, toImage);
        });
    }
    Reset();
}

std::size_t StrokeTool::trailLength() const noexcept {
    if (points().empty()) return 0;
    return nib().isBar() ? points().size() - 1 : stampEnds_.back();
}

void StrokeTool::drawTrail(MutablePixelView view, std::size_t from, std::size_t to) noexcept {
    drawPieces(view, from, to, kUnmapped);
}

void StrokeTool::drawBeyondTrail(MutablePixelView view) noexcept { drawFirstBar(view, kUnmapped); }

void StrokeTool::drawFirstBar(MutablePixelView target, PointMap map) const noexcept {
    if (points().size() == 1 && nib().isBar()) drawNibBar(target, nib(), map(points().front()));
}

void StrokeTool::drawPieces(MutablePixelView target, std::size_t from, std::size_t to,
                            PointMap map) const noexcept {
    if (from >= to) return;
    if (nib().isBar()) {
        drawSweeps(target, from, to, map);
    } else {
        drawStamps(target, from, to, map);
    }
}

void StrokeTool::drawSweeps(MutablePixelView target, std::size_t from, std::size_t to,
                            PointMap map) const noexcept {
    const Nib current = nib();
    std::array<IntPoint, kSweptPoints> way;
    for (std::size_t i = from; i < to; ++i) {
        const auto end = points().begin() + std::ptrdiff_t(i + 2);
        const auto count = std::min(i + 2, kSweptPoints);
        std::transform(end - std::ptrdiff_t(count), end, way.begin(), map);
        drawNibSweep(target, current, std::span(way).first(count));
    }
}

// The way to a point brings the stamps behind those of the point before: stamp `before` is its step 1. The
// first point is a way of no steps, whose only stamp is its step 0.
void StrokeTool::drawStamps(MutablePixelView target, std::size_t from, std::size_t to,
                            PointMap map) const noexcept {
    const NibStamp stamp(nib());
    auto point =
        std::size_t(std::upper_bound(stampEnds_.begin(), stampEnds_.end(), from) - stampEnds_.begin());
    for (std::size_t i = from; i < to; ++point) {
        const StampWalk walk(points()[point == 0 ? 0 : point - 1], points()[point]);
        const std::size_t before = point == 0 ? 1 : stampEnds_[point - 1];
        for (const std::size_t end = std::min(to, stampEnds_[point]); i < end; ++i) {
            stamp.draw(target, map(walk.at(int(i + 1 - before))));
        }
    }
}

}  // namespace orvane
