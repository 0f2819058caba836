#include "document/surface_file.h"

#include <new>
#include <utility>

#include "base/unicode.h"
#include "document/surface_target.h"
#include "platform/files.h"
#include "platform/image_codecs.h"

namespace orvane {

std::optional<std::string> readablePath(std::u16string_view name) noexcept try {
    constexpr std::size_t kShortestName = 3;
    if (name.size() < kShortestName) return std::nullopt;
    auto path = utf8FromUtf16(name);
    if (path && !isReadableFile(*path)) path.reset();
    return path;
} catch (const std::bad_alloc&) {
    return std::nullopt;
}

PixelSurface loadSurface(std::string_view path) noexcept {
    const auto bytes = readWholeFile(path);
    SurfaceTarget target;
    if (!bytes || !decodeImage(*bytes, target)) return {};
    return std::move(target.surface);
}

}  // namespace orvane
