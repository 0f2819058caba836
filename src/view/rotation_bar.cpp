#include "view/rotation_bar.h"

namespace orvane {

void RotationBar::layout(IntSize client) noexcept {
    constexpr int kFromBottom = 50, kHeight = 26;
    const int y = client.height - kFromBottom;
    angleLabel_.area = {50, y, 40, kHeight};
    slider_.area = {100, y, 240, kHeight};
    apply_.area = {360, y, 60, kHeight};
    cancel_.area = {430, y, 60, kHeight};
}

void RotationBar::reset() noexcept {
    slider_.value = 0;
    showAngle();
}

bool RotationBar::drag(IntPoint mouse) noexcept {
    if (!slider_.drag(mouse)) return false;
    showAngle();
    return true;
}

void RotationBar::showAngle() noexcept {
    angleText_ = angleText(slider_.value);
    angleLabel_.setText(angleText_);
}

void RotationBar::draw(MutablePixelView view) const noexcept {
    slider_.draw(view);
    apply_.draw(view);
    cancel_.draw(view);
    angleLabel_.draw(view);
}

// Three characters fit into the string itself, so memory cannot run out.
std::u16string angleText(int degrees) noexcept {
    std::u16string text;
    const int size = degrees < 0 ? -degrees : degrees;
    if (degrees < 0) text += u'-';
    if (size >= 10) text += char16_t(u'0' + size / 10 % 10);
    text += char16_t(u'0' + size % 10);
    return text;
}

}  // namespace orvane
