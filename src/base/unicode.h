#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvane {

/// UTF-16 from the interface as UTF-8 for the system; nothing when it is not well-formed or holds a zero,
/// which is refused rather than guessed.
[[nodiscard]] std::optional<std::string> utf8FromUtf16(std::u16string_view text);

/// The same for text to be shown: unpaired surrogates become the replacement character U+FFFD, zeros stay.
[[nodiscard]] std::string shownUtf8FromUtf16(std::u16string_view text);

/// The other direction; nothing for malformed UTF-8.
[[nodiscard]] std::optional<std::u16string> utf16FromUtf8(std::string_view text);

}  // namespace orvane
