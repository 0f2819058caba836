#pragma once

#include <string_view>

#include "document/pixel_surface.h"

namespace orvane {

/// The picture in a file, decoded straight into the surface's memory. Null when the file cannot be read or
/// decoded, when the picture is over the size limit, and when memory ran out. The path is UTF-8.
[[nodiscard]] PixelSurface loadSurface(std::string_view path) noexcept;

}  // namespace orvane
