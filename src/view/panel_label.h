#pragma once

#include <string_view>

#include <orvane/geometry.h>
#include <orvane/pixels.h>

namespace orvane {

inline constexpr Argb kPanelFill = 0x78000000u;         ///< black that lets the image through
inline constexpr Argb kPanelFillHovered = 0x78646464u;  ///< grey likewise

/// A word on a rounded panel, which may serve as a button.
class PanelLabel {
 public:
    PanelLabel(std::u16string_view text, float emPixels) noexcept : text_(text), emPixels_(emPixels) {}

    /// The characters are not owned.
    void setText(std::u16string_view text) noexcept { text_ = text; }
    [[nodiscard]] bool contains(IntPoint point) const noexcept { return area.contains(point); }
    /// Lights the panel up while the mouse is on it; answers whether that changed.
    bool hover(IntPoint mouse) noexcept;
    void draw(MutablePixelView view) const noexcept;

    IntRect area;
    Argb fill = kPanelFill;

 private:
    std::u16string_view text_;
    float emPixels_;
};

}  // namespace orvane
