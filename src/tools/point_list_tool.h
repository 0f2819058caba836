#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "tools/paint_tool.h"

namespace orvane {

/// What modes 2, 4, 5, 10 and 13 have in common: a list of vertices that grows by one with every left click
/// that hits none, until it is committed. A vertex can be dragged, and a right click on one deletes it.
///
/// Vertices move only while the mouse is inside `bounds`; new ones are taken anywhere. When the list cannot
/// grow, the new vertex is dropped. The tool is never `placed`.
///
/// A shape that needs a pen and has none, or has too few vertices, is not committed and stays pending.
class PointListTool : public PaintTool {
 public:
    using PaintTool::PaintTool;

    /// Gives the list's memory back too.
    void Reset() noexcept override;
    void OnMouseDown(MouseButton button, IntPoint mouse) noexcept override;
    bool OnMouseMove(IntPoint mouse) noexcept override;
    void OnMouseUp(IntPoint mouse) noexcept override;
    /// The shape, as soon as there are vertices enough, and a grab handle at every vertex.
    void Draw(MutablePixelView view) noexcept override;
    [[nodiscard]] CursorId HitCursor(IntPoint mouse) const noexcept override;
    /// Adds a vertex that differs from the last one.
    bool AppendPoint(IntPoint point) noexcept override;
    [[nodiscard]] bool holdsResult() const noexcept override { return isComplete(); }
    /// A gradient keeps the size that it had in the overlay; its corner is mapped.
    void commit(ImageDocument& document, PointMap toImage) noexcept override;
    void reproject(PointMap toNewZoom) noexcept override;

    std::vector<IntPoint> vertices;

 protected:
    /// Draws the shape through the vertices, which are given in the target's pixels.
    virtual void drawShape(MutablePixelView target, std::span<const IntPoint> points) const noexcept = 0;
    /// How many vertices it takes until the shape is shown.
    [[nodiscard]] virtual std::size_t fewestShown() const noexcept = 0;
    /// Whether a commit has something to draw.
    [[nodiscard]] virtual bool isComplete() const noexcept = 0;
    /// Where a gradient runs while the shape is pending; nothing for shapes that are not filled.
    [[nodiscard]] virtual std::optional<IntRect> gradientArea() const noexcept { return std::nullopt; }
    virtual void moveVertex(std::size_t index, IntPoint to) noexcept { vertices[index] = to; }
    virtual void drawHandles(MutablePixelView view) const noexcept;

    /// Adds all of the points or none.
    bool append(std::span<const IntPoint> points) noexcept;
    /// The first vertex whose handle the mouse is on, or kUnset.
    [[nodiscard]] int vertexAt(IntPoint mouse) const noexcept;
    /// The smallest rectangle with every vertex in it.
    [[nodiscard]] IntRect boundingBox() const noexcept;
};

}  // namespace orvane
