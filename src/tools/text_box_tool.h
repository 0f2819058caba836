#pragma once

#include "tools/paint_tool.h"

namespace orvane {

/// A tool that shows something in a framed box, to be dragged into place: a text or a picture.
///
/// Only a press inside the box changes what is grabbed. The grab outlasts the release and ends at `Reset`:
/// any later drag moves the box again, wherever it starts. `bounds` confines only the cursor.
class TextBoxTool : public PaintTool {
 public:
    using PaintTool::PaintTool;

    void Reset() noexcept override;
    void OnMouseDown(MouseButton button, IntPoint mouse) noexcept override;
    bool OnMouseMove(IntPoint mouse) noexcept override;
    void OnMouseUp(IntPoint /*mouse*/) noexcept override {}
    [[nodiscard]] CursorId HitCursor(IntPoint mouse) const noexcept override;
    [[nodiscard]] bool holdsResult() const noexcept override { return holdsContent(); }
    void reproject(PointMap toNewZoom) noexcept override;

    IntRect box;          ///< window pixels
    IntPoint dragAnchor;  ///< the mouse at the last drag event

 protected:
    /// Whether there is something to drag.
    [[nodiscard]] virtual bool holdsContent() const noexcept = 0;

    /// The frame around the box, striped in red and white.
    void drawFrame(MutablePixelView view) const noexcept;
};

}  // namespace orvane
