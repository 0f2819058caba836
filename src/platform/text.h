#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include <orvane/geometry.h>
#include <orvane/pixels.h>

#include "platform/graphics/brush.h"

/// Fonts and text. Texts are shaped: right-to-left, joined and stacked letters, and other families for the
/// characters that one lacks. Glyphs are coverage, which meets a picture like every other shape.
///
/// A text ends at its first zero. Unpaired surrogates show as the replacement character; nothing else is
/// special, neither markup nor mnemonics.
namespace orvane {

/// The system's own sans-serif family: not listed, but there wherever any family is.
inline constexpr std::u16string_view kSansSerif = u"sans-serif";

struct Font {
    static constexpr float kMaxEmPixels = 512;

    std::u16string_view family;  ///< a name that `fontFamilies` lists, or kSansSerif; not owned
    float emPixels = 20;         ///< em size, above 0 and up to kMaxEmPixels
    bool bold = false, italic = false, underline = false, strikeout = false;
};

/// The installed families by name, each once, sorted without regard to case. With them the names that the
/// system answers by a family of the same metrics (Arial, Helvetica, Times New Roman, Courier New).
///
/// Listed at the first call, which takes 10 to 100 ms, and the same from then on in the whole process. Empty
/// when memory ran out; the next call tries again.
[[nodiscard]] std::span<const std::u16string> fontFamilies() noexcept;

/// Where in the list a name stands; upper and lower case are the same, anything else counts.
[[nodiscard]] std::optional<std::size_t> findFontFamily(std::u16string_view name) noexcept;

/// "Arial" where it is listed, kSansSerif elsewhere: what the control's own captions are written in.
[[nodiscard]] std::u16string_view captionFamily() noexcept;

/// Whether the family is listed and the size allowed. Texts in other fonts have no extent and draw nothing.
[[nodiscard]] bool isFontAvailable(const Font& font) noexcept;

/// The box that a text takes, in pixels: the widest line, and the heights of all lines, which are whole. A
/// line ends at a line feed, a carriage return, both, or one of Unicode's two separators; one that ends the
/// text begins an empty last line. Glyphs may reach out of the box a little. Empty for an empty text and
/// without memory.
struct TextExtent {
    double width = 0, height = 0;
};
[[nodiscard]] TextExtent measureText(const Font& font, std::u16string_view text) noexcept;

/// Draws a text whose box has its top-left corner at `origin`, over the target, with a brush. All lines begin
/// at the box's left edge. Where glyphs overlap, a half-transparent brush shows no darker spot.
///
/// What lies outside is cut off: the first time that a text is measured or drawn costs by its length, from
/// then on only the visible lines count, as long as no other text comes between. Without memory nothing is
/// drawn.
void drawText(MutablePixelView target, const Font& font, std::u16string_view text, const Brush& brush,
              IntPoint origin) noexcept;
/// The same at a position between pixels. Base lines stay on whole rows, where letters are crisp.
void drawText(MutablePixelView target, const Font& font, std::u16string_view text, const Brush& brush,
              double x, double y) noexcept;

}  // namespace orvane
