#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

#include "view/panel_label.h"

namespace orvane {

/// A slider for whole degrees: a thumb on a rounded panel, dragged with the left button.
class AngleSlider {
 public:
    static constexpr int kMinimum = -45, kMaximum = 45;

    /// Grabs the thumb if the point is on it; answers whether it is.
    bool press(IntPoint point) noexcept;
    /// Moves the thumb under the mouse while it is grabbed; answers whether it is. Beyond the ends of the
    /// track the value stays at its bounds.
    bool drag(IntPoint mouse) noexcept;
    void release() noexcept { dragging_ = false; }
    [[nodiscard]] bool isDragging() const noexcept { return dragging_; }
    void draw(MutablePixelView view) const noexcept;

    IntRect area;
    int value = 0;

 private:
    // The x coordinates of the thumb's middle at both ends.
    [[nodiscard]] int trackStart() const noexcept;
    [[nodiscard]] int trackEnd() const noexcept;
    [[nodiscard]] IntRect thumb() const noexcept;

    bool dragging_ = false;
};

}  // namespace orvane
