#include "view/angle_slider.h"

#include "base/truncate.h"
#include "platform/graphics/stretch.h"
#include "view/rounded_panel.h"
#include "view/slider_thumb.h"

namespace orvane {
namespace {

constexpr double kRange = AngleSlider::kMaximum - AngleSlider::kMinimum;

}  // namespace

int AngleSlider::trackStart() const noexcept { return area.x + sliderThumb().width / 2 + 1; }
int AngleSlider::trackEnd() const noexcept { return area.right() - sliderThumb().width / 2; }

IntRect AngleSlider::thumb() const noexcept {
    const PixelView picture = sliderThumb();
    constexpr int kTopMargin = 2;
    const double pixelsPerDegree = (trackEnd() - trackStart()) / kRange;
    const int middle = truncateToInt(pixelsPerDegree * (value - kMinimum)) + trackStart();
    return {middle - picture.width / 2, area.y + kTopMargin, picture.width, picture.height};
}

bool AngleSlider::press(IntPoint point) noexcept {
    dragging_ = thumb().contains(point);
    return dragging_;
}

bool AngleSlider::drag(IntPoint mouse) noexcept {
    if (!dragging_) return false;
    if (mouse.x < trackStart()) {
        value = kMinimum;
    } else if (mouse.x > trackEnd()) {
        value = kMaximum;
    } else {
        const double degreesPerPixel = kRange / (trackEnd() - trackStart());
        const int angle = truncateToInt(degreesPerPixel * (mouse.x - trackStart()) + kMinimum);
        if (angle >= kMinimum && angle <= kMaximum) value = angle;
    }
    return true;
}

void AngleSlider::draw(MutablePixelView view) const noexcept {
    drawRoundedPanel(view, area, kPanelFill);
    drawStretched({sliderThumb(), false}, thumb(), view, StretchMode::Over);
}

}  // namespace orvane
