#pragma once

#include <string>

#include <orvane/geometry.h>
#include <orvane/pixels.h>

#include "view/angle_slider.h"
#include "view/panel_label.h"

namespace orvane {

/// The bar along the bottom of the window in which a free rotation is set: the angle as text, a slider for
/// it, and APPLY and CANCEL. All points are window pixels.
class RotationBar {
 public:
    RotationBar() noexcept = default;
    RotationBar(const RotationBar&) = delete;
    RotationBar& operator=(const RotationBar&) = delete;

    /// Places the bar in a client area of this size.
    void layout(IntSize client) noexcept;
    /// Back to angle 0.
    void reset() noexcept;
    /// Degrees, -45 to 45.
    [[nodiscard]] int angle() const noexcept { return slider_.value; }

    /// The left button goes down: grabs the slider's thumb; answers whether it did.
    bool press(IntPoint point) noexcept { return slider_.press(point); }
    /// The mouse moves: lights up the button under it; answers whether a button changed. One button changes
    /// at a time, APPLY first.
    bool hover(IntPoint mouse) noexcept { return apply_.hover(mouse) || cancel_.hover(mouse); }
    /// The mouse moves with the left button held: sets the angle while the thumb is grabbed; answers whether
    /// it is.
    bool drag(IntPoint mouse) noexcept;
    void release() noexcept { slider_.release(); }

    [[nodiscard]] bool applyHit(IntPoint point) const noexcept { return apply_.contains(point); }
    [[nodiscard]] bool cancelHit(IntPoint point) const noexcept { return cancel_.contains(point); }

    void draw(MutablePixelView view) const noexcept;

 private:
    void showAngle() noexcept;

    std::u16string angleText_ = u"0";
    PanelLabel angleLabel_{angleText_, 12.0f}, apply_{u"APPLY", 11.0f}, cancel_{u"CANCEL", 11.0f};
    AngleSlider slider_;
};

/// Whole degrees as the bar shows them: a hyphen before negative ones, no leading zero.
[[nodiscard]] std::u16string angleText(int degrees) noexcept;

}  // namespace orvane
