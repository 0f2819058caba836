#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <orvane/geometry.h>

#include "platform/text.h"

/// What each back end supplies for text. The functions may throw std::bad_alloc.
namespace orvane::text_back_end {

/// The names that text can be drawn with, in any order; some may come twice.
[[nodiscard]] std::vector<std::u16string> families();

/// The upper-case letter of a lower-case one, by the simple mapping of one letter to one; else the letter.
[[nodiscard]] char16_t upperCase(char16_t letter) noexcept;

/// `font` is available, `text` has no zero.
[[nodiscard]] TextExtent measure(const Font& font, std::u16string_view text);

/// How much of each pixel the glyphs cover, 0..255, in the part of a raster that they touch.
struct Coverage {
    IntRect area;                     ///< inside the raster; empty when nothing shows
    std::size_t strideBytes = 0;      ///< from row to row
    std::vector<std::uint8_t> bytes;  ///< top row first

    [[nodiscard]] const std::uint8_t* row(int y) const { return bytes.data() + std::size_t(y) * strideBytes; }
};

/// `font` is available, `text` has no zero, x and y are within +-10^9.
[[nodiscard]] Coverage coverage(const Font& font, std::u16string_view text, double x, double y,
                                IntSize raster);

}  // namespace orvane::text_back_end
