#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <orvane/value.h>

namespace orvane::cli {

/// A word as a value of this type; nothing when it is not written as `expectedForm` says. Independent of the
/// locale. Byte arrays come from files and are never written as words.
[[nodiscard]] std::optional<Value> parseValue(std::string_view text, ValueType type);

/// How a value of this type is written: "a whole number from 0 to 255, decimal or 0x...".
[[nodiscard]] const char* expectedForm(ValueType type) noexcept;

/// A whole number, decimal or 0x..., with an optional sign, within these bounds.
[[nodiscard]] std::optional<long long> parseInteger(std::string_view text, long long lowest,
                                                    long long highest);

/// A result as it is printed: true or false, 0x00BBGGRR, the shortest decimals that give the same number
/// back, text as it stands in UTF-8 (a lone surrogate as U+FFFD), array elements with spaces between, "null"
/// for no string or array.
[[nodiscard]] std::string printedValue(const Value& value);

}  // namespace orvane::cli
