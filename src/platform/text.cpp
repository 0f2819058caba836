#include "platform/text.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/graphics/paint.h"
#include "platform/text_back_end.h"

namespace orvane {
namespace {

bool isEqualButForCase(std::u16string_view a, std::u16string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char16_t x, char16_t y) {
        return x == y || text_back_end::upperCase(x) == text_back_end::upperCase(y);
    });
}

bool comesBefore(std::u16string_view a, std::u16string_view b) {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char16_t x, char16_t y) {
        return text_back_end::upperCase(x) < text_back_end::upperCase(y);
    });
}

std::vector<std::u16string> sortedFamilies() {
    std::vector<std::u16string> names = text_back_end::families();
    std::sort(names.begin(),
              names.end());  // of names that differ in case only, the same one stays every time
    std::stable_sort(names.begin(), names.end(), comesBefore);
    names.erase(std::unique(names.begin(), names.end(), isEqualButForCase), names.end());
    return names;
}

std::u16string_view upToZero(std::u16string_view text) { return text.substr(0, text.find(u'\0')); }

/// Coordinates so far away that nothing shows are as good as any further away.
bool isNearEnough(double coordinate) { return std::abs(coordinate) <= 1e9; }

}  // namespace

std::span<const std::u16string> fontFamilies() noexcept {
    try {
        // A list that fails to come about is attempted anew at the next call.
        static const std::vector<std::u16string> names = sortedFamilies();
        return names;
    } catch (...) {
        return {};
    }
}

std::optional<std::size_t> findFontFamily(std::u16string_view name) noexcept {
    const auto names = fontFamilies();
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (isEqualButForCase(names[i], name)) return i;
    }
    return std::nullopt;
}

std::u16string_view captionFamily() noexcept {
    const auto arial = findFontFamily(u"Arial");
    return arial ? std::u16string_view(fontFamilies()[*arial]) : kSansSerif;
}

bool isFontAvailable(const Font& font) noexcept {
    if (!(font.emPixels > 0 && font.emPixels <= Font::kMaxEmPixels)) return false;
    return font.family == kSansSerif ? !fontFamilies().empty() : findFontFamily(font.family).has_value();
}

TextExtent measureText(const Font& font, std::u16string_view text) noexcept {
    text = upToZero(text);
    if (text.empty() || !isFontAvailable(font)) return {};
    try {
        return text_back_end::measure(font, text);
    } catch (...) {
        return {};
    }
}

void drawText(MutablePixelView target, const Font& font, std::u16string_view text, const Brush& brush,
              IntPoint origin) noexcept {
    drawText(target, font, text, brush, origin.x, origin.y);
}

void drawText(MutablePixelView target, const Font& font, std::u16string_view text, const Brush& brush,
              double x, double y) noexcept {
    text = upToZero(text);
    if (!target || text.empty() || !isNearEnough(x) || !isNearEnough(y) || !isFontAvailable(font)) return;
    try {
        const auto mask = text_back_end::coverage(font, text, x, y, {target.width, target.height});
        if (mask.area.isEmpty()) return;
        BrushPainter painter(target, brush);
        for (int row = 0; row < mask.area.height; ++row) {
            painter.paint(mask.area.x, mask.area.y + row, mask.row(row), mask.area.width);
        }
    } catch (...) {
        // No memory for the glyphs: the text is missing.
    }
}

}  // namespace orvane
