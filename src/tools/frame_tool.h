#pragma once

#include "tools/paint_tool.h"

namespace orvane {

/// A frame that one drag lays out inside the shown image; afterwards corners, edges and the whole frame can
/// be dragged, by the handles of box_handles.h. The base of crop, selection and red-eye, and the view
/// rectangle of the scroll window.
///
/// A dragged handle stays inside the limit; a frame that is moved stays inside with its size. Whatever would
/// take a corner out of `bounds` is undone. A frame of fewer than 9 square pixels vanishes at the release.
class FrameTool : public PaintTool {
 public:
    using PaintTool::PaintTool;

    void Reset() noexcept override;
    /// A press outside the limit starts no frame.
    void OnMouseDown(MouseButton button, IntPoint mouse) noexcept override;
    bool OnMouseMove(IntPoint mouse) noexcept override;
    void OnMouseUp(IntPoint mouse) noexcept override;
    /// A placed frame lies bright in its shaded surroundings.
    void Draw(MutablePixelView view) noexcept override;
    [[nodiscard]] CursorId HitCursor(IntPoint mouse) const noexcept override;
    /// Whether a frame is being laid out.
    [[nodiscard]] bool awaitsSecondPoint() const noexcept override { return !placed && holdsFrame(); }

    /// Whether there are no corners at all. All that is shown may be selected with a corner outside the
    /// window; only a frame without such is one for the mouse.
    [[nodiscard]] bool isUnset() const noexcept { return corner1 == kUnsetPoint && corner2 == kUnsetPoint; }
    [[nodiscard]] bool holdsFrame() const noexcept { return corner1.x >= 0 && corner1.y >= 0; }
    /// The frame with its corners in order: from the first one up to, and without, the second.
    [[nodiscard]] IntRect frame() const noexcept;
    /// Moves both corners to where they belong after a zoom change, if both are then in `bounds`. For frames
    /// that belong to the image.
    void reprojectCorners(PointMap toNewZoom) noexcept;

    IntRect limit;  ///< where the image is shown; it outlives a Reset
    IntPoint corner1 = kUnsetPoint, corner2 = kUnsetPoint;
    IntPoint moveAnchor = kUnsetPoint;  ///< where the mouse was last while it moves the frame
    Argb shadeColour = 0xB4FFFFFFu;

 private:
    [[nodiscard]] int handleAt(IntPoint mouse) const noexcept;
    void dragHandle(IntPoint mouse) noexcept;
    void moveFrame(IntPoint mouse) noexcept;
    /// The end of the first drag; false when too little was laid out and the frame is gone.
    bool place(IntPoint mouse) noexcept;
    void normalise() noexcept;
    [[nodiscard]] bool isInsideBounds() const noexcept;
};

}  // namespace orvane
