#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/text.h"

namespace orvane {

/// The font that text is placed with. Families count as `fontFamilies` lists them, which is first asked when
/// somebody needs to know: a control that writes no text does not wait for the list.
struct TextSettings {
    enum StyleBit : std::uint8_t { Bold = 1, Italic = 2, Underline = 4, Strikeout = 8 };

    std::optional<int> chosenIndex;  ///< what FontIndex was put to, unchecked
    std::uint8_t fontStyleBits = 0;
    std::uint8_t fontSize = 20;  ///< em size in pixels, 8..128

    /// FontIndex: until it is put, where "Arial" stands, or 0 where there is none.
    [[nodiscard]] int fontIndex() const noexcept;
    /// The family at fontIndex; nothing outside the list.
    [[nodiscard]] std::optional<std::u16string_view> fontName() const noexcept;
    /// Chooses the family of this name, in upper or lower case; answers whether there is one.
    bool chooseByName(std::u16string_view name) noexcept;
    /// What text is drawn in now, if there is such a family.
    [[nodiscard]] std::optional<Font> current() const noexcept;
};

}  // namespace orvane
