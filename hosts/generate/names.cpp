#include "names.h"

#include <cctype>
#include <cstdio>

namespace orvane {
namespace {

bool isUpper(char c) { return std::isupper(static_cast<unsigned char>(c)) != 0; }

/// Whether a word begins at a capital: after a small letter, or before one (the L of GetLHistogram and the
/// H).
bool beginsWord(std::string_view name, std::size_t i) {
    if (i == 0 || !isUpper(name[i])) return false;
    return !isUpper(name[i - 1]) ||
           (i + 1 < name.size() && std::islower(static_cast<unsigned char>(name[i + 1])) != 0);
}

}  // namespace

std::string hexId(int id) {
    char text[8];
    std::snprintf(text, sizeof text, "0x%02X", unsigned(id));
    return text;
}

std::string wordsOf(std::string_view name, char separator) {
    std::string words;
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (beginsWord(name, i)) words += separator;
        words += char(std::tolower(static_cast<unsigned char>(name[i])));
    }
    return words;
}

std::string signalName(std::string_view eventName) {
    constexpr std::string_view kOn = "On";
    if (eventName.substr(0, kOn.size()) == kOn) eventName.remove_prefix(kOn.size());
    return wordsOf(eventName, '-');
}

}  // namespace orvane
