#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <orvane/geometry.h>
#include <orvane/pixels.h>

#include "platform/graphics/brush.h"

/// Fonts and text. Each back end supplies these functions: it shapes (right-to-left, ligatures, fallback to
/// other families for characters that one lacks) and gives coverage, which meets a picture like every other
/// shape.
namespace orvane {

struct Font {
    std::u16string_view family;  ///< a name that `fontFamilies` lists; the characters are not owned
    float emPixels = 20;         ///< em size
    bool bold = false, italic = false, underline = false, strikeout = false;
};

/// The installed families by name, sorted, with the names that the system answers by a metric-compatible
/// family (Arial, Helvetica, Times New Roman, Courier New) where it has one. Empty when memory ran out.
[[nodiscard]] std::vector<std::u16string> fontFamilies() noexcept;

/// Whether the font's family is installed, or answered by a metric-compatible one.
[[nodiscard]] bool isFontAvailable(const Font& font) noexcept;

/// The box that a text takes, in pixels: the widest line, and the lines' heights together. A line ends at a
/// line feed, a carriage return or both. Empty for an empty text and without memory.
struct TextExtent {
    double width = 0, height = 0;
};
[[nodiscard]] TextExtent measureText(const Font& font, std::u16string_view text) noexcept;

/// Draws a text whose box has its top-left corner at `origin`, over the target, with a brush. What lies
/// outside is cut off; cost follows the visible part and the length of the text.
void drawText(MutablePixelView target, const Font& font, std::u16string_view text, const Brush& brush,
              IntPoint origin) noexcept;
/// The same at a position between pixels.
void drawText(MutablePixelView target, const Font& font, std::u16string_view text, const Brush& brush,
              double x, double y) noexcept;

}  // namespace orvane
