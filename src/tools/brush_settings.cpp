#include "tools/brush_settings.h"

#include <new>

#include "base/unicode.h"
#include "document/surface_file.h"
#include "platform/files.h"

namespace orvane {
namespace {

constexpr std::size_t kShortestFileName = 3;

/// The path of a file that can be opened; nothing for a missing one, and when there is no memory to tell.
std::optional<std::string> readablePath(const std::optional<std::u16string>& name) noexcept try {
    if (!name || name->size() < kShortestFileName) return std::nullopt;
    auto path = utf8FromUtf16(*name);
    if (path && !isReadableFile(*path)) path.reset();
    return path;
} catch (const std::bad_alloc&) {
    return std::nullopt;
}

void replaceAlpha(PixelSurface& surface, unsigned alpha) noexcept {
    const MutablePixelView pixels = surface.write();
    for (std::size_t i = 0; i < pixels.pixelCount(); ++i) {
        pixels.pixels[i] = (pixels.pixels[i] & 0x00FFFFFFu) | (Argb{alpha} << 24);
    }
}

}  // namespace

std::optional<Brush> BrushSettings::current() const noexcept {
    switch (style) {
        case Solid:
            return SolidBrush{colour1};
        case Gradient:
            return GradientBrush{gradientRectangle, colour1, colour2, GradientMode(gradientMode)};
        case Hatch:
            return HatchBrush{hatchStyle, colour2, colour1};
        case Texture:
            if (texture.isNull()) return std::nullopt;
            return TextureBrush{texture.read(), wrapOfTexture};
        default:
            return std::nullopt;
    }
}

void BrushSettings::rebuild() noexcept {
    if (style == Texture) readTexture();
}

void BrushSettings::textureFileChanged() noexcept {
    texture = {};
    readTexture();
}

void BrushSettings::transparencyChanged() noexcept { readTexture(); }

void BrushSettings::setGradientRectangle(IntRect area) noexcept {
    gradientRectangle = area;
    rebuild();
}

void BrushSettings::readTexture() noexcept {
    const auto path = readablePath(textureFileName);
    if (!path) return;
    // The old picture first, for a large one need not stand beside its successor.
    texture = {};
    texture = loadSurface(*path);
    replaceAlpha(texture, alphaOf(colour1));
    wrapOfTexture = WrapMode(textureWrap);
}

}  // namespace orvane
