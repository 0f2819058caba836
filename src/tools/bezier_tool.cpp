#include "tools/bezier_tool.h"

#include <array>

#include "platform/graphics/shapes.h"
#include "tools/bounded_point.h"
#include "tools/grab_handle.h"

namespace orvane {
namespace {

constexpr int kFewestCommitted = 6;

constexpr bool isAnchor(std::size_t index) { return index % 3 == 1; }

constexpr IntPoint mirrored(IntPoint point, IntPoint centre) {
    return bounded({2 * centre.x - point.x, 2 * centre.y - point.y});
}

void drawControl(MutablePixelView view, IntPoint centre) noexcept {
    const IntRect box{centre.x - 3, centre.y - 3, 7, 7};
    fillEllipse(view, SolidBrush{kYellow}, box);
    drawEllipse(view, Pen(kBlack), box);
}

}  // namespace

void BezierTool::Reset() noexcept {
    PointListTool::Reset();
    bezierCount = kNoChain;
}

void BezierTool::OnMouseDown(MouseButton button, IntPoint mouse) noexcept {
    if (button == MouseButton::Left)
        PointListTool::OnMouseDown(button, mouse);
    else
        activeHandle = kUnset;
}

bool BezierTool::AppendPoint(IntPoint point) noexcept {
    const IntPoint added = bounded(point);
    const bool completesSegment = static_cast<int>(vertices.size()) - bezierCount == 3;
    if (!completesSegment) return append({&added, 1});
    const std::array<IntPoint, 2> anchorAndControl{added, mirrored(vertices.back(), added)};
    if (!append(anchorAndControl)) return false;
    bezierCount += 3;
    return true;
}

void BezierTool::drawShape(MutablePixelView target, std::span<const IntPoint> points) const noexcept {
    if (const std::optional<Pen> outline = pen.current())
        drawBeziers(target, *outline, points.subspan(1, std::size_t(bezierCount)));
}

bool BezierTool::isComplete() const noexcept { return bezierCount >= kFewestCommitted && pen.current(); }

void BezierTool::moveVertex(std::size_t index, IntPoint to) noexcept {
    const IntPoint from = vertices[index];
    vertices[index] = to;
    if (isAnchor(index)) {
        for (const std::size_t control : {index - 1, index + 1}) {
            IntPoint& point = vertices[control];
            point = bounded({point.x + to.x - from.x, point.y + to.y - from.y});
        }
    } else if (index % 3 == 2) {
        mirror(index - 2, index - 1, index);
    } else {
        mirror(index + 2, index + 1, index);
    }
}

void BezierTool::drawHandles(MutablePixelView view) const noexcept {
    for (std::size_t i = 0; i + 3 <= vertices.size(); i += 3)
        drawLine(view, Pen(kBlack), vertices[i], vertices[i + 2]);
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        if (isAnchor(i))
            drawGrabHandle(view, vertices[i], handleRadius(pen));
        else
            drawControl(view, vertices[i]);
    }
}

/// The newest control has neither anchor nor partner yet.
void BezierTool::mirror(std::size_t target, std::size_t anchor, std::size_t source) noexcept {
    if (target < vertices.size()) vertices[target] = mirrored(vertices[source], vertices[anchor]);
}

}  // namespace orvane
