#include "base/unicode.h"

#include <cstdint>

namespace orvane {
namespace {

constexpr char32_t kLastCodePoint = 0x10FFFF;

bool isSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDFFF; }

void appendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out.push_back(static_cast<char>(c));
        return;
    }
    const int tail = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    constexpr unsigned kLead[] = {0, 0xC0, 0xE0, 0xF0};
    out.push_back(static_cast<char>(kLead[tail] | (c >> (6 * tail))));
    for (int i = tail - 1; i >= 0; --i) out.push_back(static_cast<char>(0x80u | ((c >> (6 * i)) & 0x3Fu)));
}

/// The character at i, which moves behind it; an unpaired surrogate comes as it is.
char32_t nextOfUtf16(std::u16string_view text, std::size_t& i) {
    const char32_t c = text[i++];
    const bool isPair = isSurrogate(c) && c < 0xDC00 && i < text.size() && (text[i] & 0xFC00) == 0xDC00;
    return isPair ? 0x10000 + ((c & 0x3FF) << 10) + (text[i++] & 0x3FFu) : c;
}

void appendUtf16(std::u16string& out, char32_t c) {
    if (c < 0x10000) {
        out.push_back(static_cast<char16_t>(c));
        return;
    }
    c -= 0x10000;
    out.push_back(static_cast<char16_t>(0xD800 + (c >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + (c & 0x3FF)));
}

}  // namespace

std::optional<std::string> utf8FromUtf16(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const char32_t c = nextOfUtf16(text, i);
        if (c == 0 || isSurrogate(c)) return std::nullopt;
        appendUtf8(out, c);
    }
    return out;
}

std::string shownUtf8FromUtf16(std::u16string_view text) {
    constexpr char32_t kReplacement = 0xFFFD;
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const char32_t c = nextOfUtf16(text, i);
        appendUtf8(out, isSurrogate(c) ? kReplacement : c);
    }
    return out;
}

std::optional<std::u16string> utf16FromUtf8(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<std::uint8_t>(text[i]);
        const int tail = lead < 0x80                   ? 0
                         : lead >= 0xC2 && lead < 0xE0 ? 1
                         : lead >= 0xE0 && lead < 0xF0 ? 2
                         : lead >= 0xF0 && lead < 0xF5 ? 3
                                                       : -1;
        if (tail < 0 || text.size() - i <= std::size_t(tail)) return std::nullopt;
        char32_t c = tail == 0 ? lead : lead & (0x3Fu >> tail);
        for (int k = 1; k <= tail; ++k) {
            const auto next = static_cast<std::uint8_t>(text[i + std::size_t(k)]);
            if ((next & 0xC0) != 0x80) return std::nullopt;
            c = (c << 6) | (next & 0x3Fu);
        }
        constexpr char32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
        if (c < kSmallest[tail] || c > kLastCodePoint || isSurrogate(c)) return std::nullopt;
        appendUtf16(out, c);
        i += std::size_t(tail) + 1;
    }
    return out;
}

}  // namespace orvane
