#pragma once

#include "tools/paint_tool.h"

namespace orvane {

/// What modes 6, 8, 9 and 11 have in common: a figure in a box that one drag lays out. Afterwards a drag on
/// one of eight handles resizes it, a drag inside moves it, and a press elsewhere does nothing.
///
///     0 - 1 - 2        0 is corner 1, 4 is corner 2
///     7       3
///     6 - 5 - 4
///
/// A step of a drag that would take a corner outside `bounds` is refused: the corners stay. A box turned over
/// by a drag exchanges its corners, and the grabbed handle gets its new number.
///
/// A commit maps the box by its first and its last pixel. Without a box nothing is drawn, and there is no
/// step.
class BoxTool : public PaintTool {
 public:
    using PaintTool::PaintTool;

    void Reset() noexcept override;
    void OnMouseDown(MouseButton button, IntPoint mouse) noexcept override;
    bool OnMouseMove(IntPoint mouse) noexcept override;
    void OnMouseUp(IntPoint mouse) noexcept override;
    /// The figure, its frame and, once placed, its handles; nothing for a box without area.
    void Draw(MutablePixelView view) noexcept override;
    [[nodiscard]] CursorId HitCursor(IntPoint mouse) const noexcept override;
    /// Whether a box is being laid out.
    [[nodiscard]] bool awaitsSecondPoint() const noexcept override { return !placed && holdsBox(); }
    [[nodiscard]] bool holdsResult() const noexcept override { return placed && holdsBox(); }
    /// A gradient runs across the box, with its size in window pixels and its corner mapped.
    void commit(ImageDocument& document, PointMap toImage) noexcept override;
    void reproject(PointMap toNewZoom) noexcept override;

    [[nodiscard]] bool holdsBox() const noexcept { return corner1 != kUnsetPoint && corner2 != kUnsetPoint; }
    /// The box with its corners in order.
    [[nodiscard]] IntRect box() const noexcept;

    IntPoint corner1 = kUnsetPoint, corner2 = kUnsetPoint;
    IntPoint moveAnchor = kUnsetPoint;  ///< where the mouse was last while it moves the box

 protected:
    /// Draws the figure of this box, which is given in the target's pixels.
    virtual void drawShape(MutablePixelView target, IntRect area) const noexcept = 0;
    /// Whether the figure has an inside for the brush; one that has none needs a pen to be committed.
    [[nodiscard]] virtual bool fills() const noexcept { return true; }
    /// What surrounds the pending figure: here a black rectangle with handles of a fixed size.
    virtual void drawFrame(MutablePixelView view, IntRect area) const noexcept;

    /// The handles as squares of side 2 * radius + 1, the left column one pixel further left.
    void drawHandles(MutablePixelView view, int radius) const noexcept;
    /// The box without what an outline along its inside takes up.
    [[nodiscard]] IntRect insideOutline(IntRect area) const noexcept;

 private:
    [[nodiscard]] IntPoint handleCentre(int handle) const noexcept;
    [[nodiscard]] IntRect handleSquare(int handle, int radius) const noexcept;
    [[nodiscard]] int handleAt(IntPoint mouse) const noexcept;
    void moveBox(IntPoint mouse) noexcept;
    [[nodiscard]] bool isInsideBounds() const noexcept;
};

}  // namespace orvane
