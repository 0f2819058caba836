#include "tools/point_list_tool.h"

#include <algorithm>
#include <new>

#include "tools/bounded_point.h"
#include "tools/grab_handle.h"
#include "tools/image_commit.h"

namespace orvane {
namespace {

std::optional<std::vector<IntPoint>> mapped(const std::vector<IntPoint>& points, PointMap map) noexcept {
    try {
        std::vector<IntPoint> result = points;
        for (IntPoint& point : result) point = bounded(map(point));
        return result;
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

}  // namespace

void PointListTool::Reset() noexcept {
    PaintTool::Reset();
    std::vector<IntPoint>().swap(vertices);
}

void PointListTool::OnMouseDown(MouseButton button, IntPoint mouse) noexcept {
    activeHandle = kUnset;
    const int hit = vertexAt(mouse);
    if (button == MouseButton::Left) {
        activeHandle = hit;
        if (hit == kUnset) AppendPoint(mouse);
    } else if (button == MouseButton::Right && hit != kUnset) {
        vertices.erase(vertices.begin() + hit);
    }
}

bool PointListTool::OnMouseMove(IntPoint mouse) noexcept {
    if (!bounds.contains(mouse) || activeHandle == kUnset) return false;
    moveVertex(std::size_t(activeHandle), bounded(mouse));
    return true;
}

void PointListTool::OnMouseUp(IntPoint /*mouse*/) noexcept { activeHandle = kUnset; }

void PointListTool::Draw(MutablePixelView view) noexcept {
    if (vertices.size() >= fewestShown()) {
        const std::optional<IntRect> area = gradientArea();
        if (area && brush.isGradient()) brush.setGradientRectangle(*area);
        drawShape(view, vertices);
    }
    if (showHandles) drawHandles(view);
}

CursorId PointListTool::HitCursor(IntPoint mouse) const noexcept {
    return vertexAt(mouse) != kUnset ? CursorId::Handle : CursorId::Arrow;
}

bool PointListTool::AppendPoint(IntPoint point) noexcept {
    const IntPoint added = bounded(point);
    if (!vertices.empty() && vertices.back() == added) return false;
    return append({&added, 1});
}

void PointListTool::commit(ImageDocument& document, PointMap toImage) noexcept {
    if (!isComplete()) return;
    const std::optional<std::vector<IntPoint>> points = mapped(vertices, toImage);
    if (!points) return;
    const bool drawn = drawIntoImage(document, [&](MutablePixelView image) {
        if (brush.isGradient() && gradientArea()) {
            // The overlay has set it last, in window pixels.
            const IntRect area = brush.gradientRectangle;
            const IntPoint corner = bounded(toImage({area.x, area.y}));
            brush.setGradientRectangle({corner.x, corner.y, area.width, area.height});
        }
        drawShape(image, *points);
    });
    if (drawn) Reset();
}

void PointListTool::reproject(PointMap toNewZoom) noexcept {
    for (IntPoint& vertex : vertices) vertex = bounded(toNewZoom(vertex));
}

void PointListTool::drawHandles(MutablePixelView view) const noexcept {
    for (const IntPoint vertex : vertices) drawGrabHandle(view, vertex, handleRadius(pen));
}

bool PointListTool::append(std::span<const IntPoint> points) noexcept {
    try {
        vertices.insert(vertices.end(), points.begin(), points.end());
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

int PointListTool::vertexAt(IntPoint mouse) const noexcept {
    const int radius = handleRadius(pen);
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        if (hitsVertex(vertices[i], radius, mouse)) return static_cast<int>(i);
    }
    return kUnset;
}

IntRect PointListTool::boundingBox() const noexcept {
    if (vertices.empty()) return {};
    IntPoint least = vertices.front(), most = least;
    for (const IntPoint vertex : vertices) {
        least = {std::min(least.x, vertex.x), std::min(least.y, vertex.y)};
        most = {std::max(most.x, vertex.x), std::max(most.y, vertex.y)};
    }
    return {least.x, least.y, most.x - least.x + 1, most.y - least.y + 1};
}

}  // namespace orvane
