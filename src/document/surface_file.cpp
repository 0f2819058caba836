#include "document/surface_file.h"

#include <utility>

#include "platform/files.h"
#include "platform/image_codecs.h"

namespace orvane {
namespace {

class SurfaceTarget final : public DecodeTarget {
 public:
    MutablePixelView allocate(int width, int height) override {
        surface = PixelSurface::create(width, height);
        return surface.overwrite();
    }
    PixelSurface surface;
};

}  // namespace

PixelSurface loadSurface(std::string_view path) noexcept {
    const auto bytes = readWholeFile(path);
    SurfaceTarget target;
    if (!bytes || !decodeImage(*bytes, target)) return {};
    return std::move(target.surface);
}

}  // namespace orvane
