#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "document/pixel_surface.h"

namespace orvane {

/// The UTF-8 path of a file that a host names and that can be opened for reading. Nothing for a name of fewer
/// than 3 characters, for a missing file, and when there is no memory to tell.
[[nodiscard]] std::optional<std::string> readablePath(std::u16string_view name) noexcept;

/// The picture in a file, decoded straight into the surface's memory. Null when the file cannot be read or
/// decoded, when the picture is over the size limit, and when memory ran out. The path is UTF-8.
[[nodiscard]] PixelSurface loadSurface(std::string_view path) noexcept;

}  // namespace orvane
