#pragma once

#include <string>
#include <string_view>

namespace orvane {

/// A dispatch identifier as the sources write it, such as 0x2E.
std::string hexId(int id);

/// GaussianBlur, ppArray as gaussian_blur, pp_array: the words of a name, joined by `separator`.
std::string wordsOf(std::string_view name, char separator = '_');

/// OnDropFile as drop-file: GObject's signals have no "on".
std::string signalName(std::string_view eventName);

}  // namespace orvane
