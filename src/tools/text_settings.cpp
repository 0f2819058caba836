#include "tools/text_settings.h"

namespace orvane {

int TextSettings::fontIndex() const noexcept {
    if (chosenIndex) return *chosenIndex;
    return int(findFontFamily(u"Arial").value_or(0));
}

std::optional<std::u16string_view> TextSettings::fontName() const noexcept {
    const auto families = fontFamilies();
    const int index = fontIndex();
    if (index < 0 || std::size_t(index) >= families.size()) return std::nullopt;
    return families[std::size_t(index)];
}

bool TextSettings::chooseByName(std::u16string_view name) noexcept {
    const auto found = findFontFamily(name);
    if (found) chosenIndex = int(*found);
    return found.has_value();
}

std::optional<Font> TextSettings::current() const noexcept {
    const auto family = fontName();
    if (!family) return std::nullopt;
    const auto has = [this](StyleBit bit) { return (fontStyleBits & bit) != 0; };
    return Font{*family, float(fontSize), has(Bold), has(Italic), has(Underline), has(Strikeout)};
}

}  // namespace orvane
