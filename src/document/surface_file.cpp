#include "document/surface_file.h"

#include <utility>

#include "document/surface_target.h"
#include "platform/files.h"
#include "platform/image_codecs.h"

namespace orvane {

PixelSurface loadSurface(std::string_view path) noexcept {
    const auto bytes = readWholeFile(path);
    SurfaceTarget target;
    if (!bytes || !decodeImage(*bytes, target)) return {};
    return std::move(target.surface);
}

}  // namespace orvane
