#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/image_codecs.h"

namespace orvane::cli {

/// The format that a file's extension asks for, in either case; nothing for an unknown one or none.
[[nodiscard]] std::optional<ImageFormat> formatOfPath(std::string_view path);
/// The format of an extension without its dot.
[[nodiscard]] std::optional<ImageFormat> formatOfExtension(std::string_view extension);

/// ".bmp .jpg ...": the extensions that formatOfPath knows.
[[nodiscard]] std::string knownExtensions();

/// The part of the file name from its last dot on, ".jpg"; empty when there is none.
[[nodiscard]] std::string_view extensionOf(std::string_view path);

}  // namespace orvane::cli
