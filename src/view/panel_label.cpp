#include "view/panel_label.h"

#include "platform/text.h"
#include "view/rounded_panel.h"

namespace orvane {

bool PanelLabel::hover(IntPoint mouse) noexcept {
    const Argb before = fill;
    fill = contains(mouse) ? kPanelFillHovered : kPanelFill;
    return fill != before;
}

void PanelLabel::draw(MutablePixelView view) const noexcept {
    drawRoundedPanel(view, area, fill);
    Font font{u"Arial", emPixels_};
    font.bold = true;
    const TextExtent extent = measureText(font, text_);
    constexpr double kBearing = 2.0;  // looks centred with the room that fonts leave before a word
    drawText(view, font, text_, SolidBrush{kPanelInk},
             area.x + area.width / 2 - extent.width * 0.5 + kBearing,
             area.y + area.height / 2 - extent.height * 0.5);
}

}  // namespace orvane
