#pragma once

#include <vector>

#include "tools/paint_tool.h"
#include "tools/tool_settings.h"

namespace orvane {

/// Mode 7: random dots around the mouse in the pen's colour, a burst with every move and every tick of the
/// timer. The dots lie in a disc of SprayRadius whose centre is 5 pixels right of the mouse and 9 below it.
class SprayTool final : public PaintTool {
 public:
    SprayTool(const PenSettings& sharedPen, BrushSettings& sharedBrush,
              const FreehandSettings& freehand) noexcept
        : PaintTool(sharedPen, sharedBrush), freehand_(freehand) {}

    void Reset() noexcept override;
    void OnMouseDown(MouseButton button, IntPoint mouse) noexcept override;
    bool OnMouseMove(IntPoint mouse) noexcept override;
    void OnMouseUp(IntPoint mouse) noexcept override;
    /// Replaces one pixel for each dot, by the pen's colour made opaque.
    void Draw(MutablePixelView view) noexcept override;
    /// Always one history step, also without a dot. Each dot blends the pen's colour into a pixel and makes
    /// it opaque. Afterwards there are no dots, whatever happened.
    void commit(ImageDocument& document, PointMap toImage) noexcept override;

    /// Whether the timer adds bursts: the button is held, the mouse neither left of nor above the window.
    [[nodiscard]] bool hasCentre() const noexcept { return centre_.x >= 0 && centre_.y >= 0; }
    /// Adds the dots of one burst around the last position of the mouse, as far as memory suffices. Their
    /// number grows with the disc: 6 for radius 8, 245 for radius 50. Draws from the shared random stream.
    void burst() noexcept;

 private:
    void blendDots(MutablePixelView image, PointMap toImage) const noexcept;

    const FreehandSettings& freehand_;
    std::vector<IntPoint> dots_;     // window pixels
    IntPoint centre_ = kUnsetPoint;  // where the mouse is while the button is held
};

}  // namespace orvane
