#include "tools/polygon_tool.h"

#include "platform/graphics/shapes.h"

namespace orvane {
namespace {

constexpr std::size_t kFewestShown = 3;
constexpr std::size_t kFewestCommitted = 2;

}  // namespace

void PolygonTool::drawShape(MutablePixelView target, std::span<const IntPoint> points) const noexcept {
    if (points.size() < kFewestShown) return;
    if (const std::optional<Brush> fill = brush.current()) fillPolygon(target, *fill, points);
    if (const std::optional<Pen> outline = pen.current()) drawPolygon(target, *outline, points);
}

bool PolygonTool::isComplete() const noexcept { return vertices.size() >= kFewestCommitted; }

std::optional<IntRect> PolygonTool::gradientArea() const noexcept {
    return vertices.size() >= kFewestShown ? std::optional(boundingBox()) : std::nullopt;
}

}  // namespace orvane
