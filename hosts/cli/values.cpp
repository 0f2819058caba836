#include "cli/values.h"

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <limits>

#include "base/unicode.h"

namespace orvane::cli {
namespace {

constexpr long long kLowestLong = std::numeric_limits<std::int32_t>::min();
constexpr long long kHighestLong = std::numeric_limits<std::int32_t>::max();
constexpr long long kHighestColour = std::numeric_limits<std::uint32_t>::max();

std::optional<Value> parseBoolean(std::string_view text) {
    if (text == "true" || text == "1") return Value(true);
    if (text == "false" || text == "0") return Value(false);
    return std::nullopt;
}

std::optional<Value> parseDouble(std::string_view text) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return Value(number);
}

std::optional<Value> parseLongList(std::string_view text) {
    Value::Longs numbers;
    for (;;) {
        const std::size_t comma = text.find(',');
        const auto number = parseInteger(text.substr(0, comma), kLowestLong, kHighestLong);
        if (!number) return std::nullopt;
        numbers.push_back(static_cast<std::int32_t>(*number));
        if (comma == std::string_view::npos) return Value(std::move(numbers));
        text.remove_prefix(comma + 1);
    }
}

std::optional<Value> parseString(std::string_view text) {
    auto utf16 = utf16FromUtf8(text);
    if (!utf16) return std::nullopt;
    return Value(std::move(*utf16));
}

/// Anything that the control holds can be shown: what UTF-8 cannot express becomes U+FFFD.
std::string printedText(std::u16string_view text) {
    std::string shown;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t length = (text[i] & 0xFC00) == 0xD800 && i + 1 < text.size() ? 2 : 1;
        if (const auto pair = utf8FromUtf16(text.substr(i, length))) {
            shown += *pair;
            i += length - 1;
        } else {
            shown += "\xEF\xBF\xBD";
        }
    }
    return shown;
}

template <class Numbers>
std::string joined(const Numbers& numbers) {
    std::string text;
    for (const auto number : numbers) {
        if (!text.empty()) text += ' ';
        text += std::to_string(number);
    }
    return text;
}

}  // namespace

std::optional<long long> parseInteger(std::string_view text, long long lowest, long long highest) {
    const bool negative = !text.empty() && text[0] == '-';
    if (!text.empty() && (text[0] == '-' || text[0] == '+')) text.remove_prefix(1);
    int base = 10;
    if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
        base = 16;
        text.remove_prefix(2);
    }
    std::uint64_t magnitude = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), magnitude, base);
    if (error != std::errc() || end != text.data() + text.size() || magnitude > 0xFFFFFFFFFFu) {
        return std::nullopt;
    }
    const long long number =
        negative ? -static_cast<long long>(magnitude) : static_cast<long long>(magnitude);
    if (number < lowest || number > highest) return std::nullopt;
    return number;
}

std::optional<Value> parseValue(std::string_view text, ValueType type) {
    switch (type) {
        case ValueType::Boolean:
            return parseBoolean(text);
        case ValueType::Byte:
            if (const auto n = parseInteger(text, 0, 255)) return Value(static_cast<std::uint8_t>(*n));
            return std::nullopt;
        case ValueType::Long:
            if (const auto n = parseInteger(text, kLowestLong, kHighestLong)) {
                return Value(static_cast<std::int32_t>(*n));
            }
            return std::nullopt;
        case ValueType::Double:
            return parseDouble(text);
        case ValueType::Color:
            if (const auto n = parseInteger(text, 0, kHighestColour)) {
                return Value(ColorValue{static_cast<std::uint32_t>(*n)});
            }
            return std::nullopt;
        case ValueType::String:
            return parseString(text);
        case ValueType::LongArray:
            return parseLongList(text);
        case ValueType::None:
        case ValueType::ByteArray:
            break;
    }
    return std::nullopt;
}

const char* expectedForm(ValueType type) noexcept {
    switch (type) {
        case ValueType::Boolean:
            return "true, false, 1 or 0";
        case ValueType::Byte:
            return "a whole number from 0 to 255, decimal or 0x...";
        case ValueType::Long:
            return "a whole number from -2147483648 to 2147483647, decimal or 0x...";
        case ValueType::Double:
            return "a number such as 2, 0.5 or 1e-3";
        case ValueType::Color:
            return "a colour 0x00BBGGRR (blue, green, red) or the same number in decimal";
        case ValueType::String:
            return "text in well-formed UTF-8";
        case ValueType::LongArray:
            return "whole numbers with commas between, such as 0,-1,0,-1,5,-1,0,-1,0";
        case ValueType::ByteArray:
            return "the path of a file of raw bytes, or - for standard input or output";
        case ValueType::None:
            break;
    }
    return "";
}

std::string printedValue(const Value& value) {
    char text[64];
    switch (value.type()) {
        case ValueType::None:
            return "null";
        case ValueType::Boolean:
            return value.boolean() ? "true" : "false";
        case ValueType::Byte:
            return std::to_string(value.byte());
        case ValueType::Long:
            return std::to_string(value.number());
        case ValueType::Double:
            return std::string(text, std::to_chars(text, text + sizeof text, value.real()).ptr);
        case ValueType::Color:
            std::snprintf(text, sizeof text, "0x%08X", value.color().bgr);
            return text;
        case ValueType::String:
            return printedText(value.string());
        case ValueType::ByteArray:
            return joined(value.bytes());
        case ValueType::LongArray:
            return joined(value.longs());
    }
    return {};
}

}  // namespace orvane::cli
