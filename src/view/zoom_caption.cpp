#include "view/zoom_caption.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "base/truncate.h"
#include "platform/graphics/stretch.h"
#include "platform/text.h"

namespace orvane {
namespace {

constexpr Argb kWhite = 0xFFFFFFFFu;

Font captionFont() noexcept {
    Font font{u"Arial", 11.0f};
    font.bold = true;
    return font;
}

// The words, without memory of their own.
class Words {
 public:
    explicit Words(int percent) noexcept {
        append("Zoomed to ");
        std::array<char, 16> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), percent);
        append({digits.data(), std::size_t(end.ptr - digits.data())});
        append("%");
    }
    [[nodiscard]] std::u16string_view text() const noexcept { return {characters_.data(), length_}; }

 private:
    void append(std::string_view part) noexcept {
        for (const char c : part) characters_[length_++] = char16_t(c);
    }

    std::array<char16_t, 32> characters_{};
    std::size_t length_ = 0;
};

}  // namespace

void ZoomCaption::draw(double zoom, IntPoint topCentre, MutablePixelView target) noexcept {
    const int percent = truncateToInt(zoom * 100);
    if (picture_.isNull() || percent != percent_) render(percent);
    if (picture_.isNull()) return;
    const IntRect place{topCentre.x + toPicture_.x, topCentre.y + toPicture_.y, picture_.width(),
                        picture_.height()};
    drawStretched({picture_.read(), false}, place, target, StretchMode::Over);
}

/// Letters may reach a little beyond their box, and begin between two pixels.
void ZoomCaption::render(int percent) noexcept {
    constexpr int kMargin = 3;
    const Words words(percent);
    const Font font = captionFont();
    const TextExtent extent = measureText(font, words.text());
    picture_ = PixelSurface();
    if (extent.width <= 0) return;  // no memory to measure
    const double left = -extent.width / 2;
    toPicture_ = {int(std::floor(left)) - kMargin, -kMargin};
    picture_ = PixelSurface::create(int(std::ceil(extent.width)) + 2 * kMargin + 1,
                                    int(std::ceil(extent.height)) + 2 * kMargin);
    const MutablePixelView pixels = picture_.overwrite();
    if (!pixels) return;
    std::fill_n(pixels.pixels, pixels.pixelCount(), Argb{0});
    drawText(pixels, font, words.text(), SolidBrush{kWhite}, left - toPicture_.x, double(kMargin));
    percent_ = percent;
}

}  // namespace orvane
