#include "tools/brush_settings.h"

#include "document/surface_file.h"

namespace orvane {
namespace {

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
    const auto path = textureFileName ? readablePath(*textureFileName) : std::nullopt;
    if (!path) return;
    // The old picture first, for a large one need not stand beside its successor.
    texture = {};
    texture = loadSurface(*path);
    replaceAlpha(texture, alphaOf(colour1));
    wrapOfTexture = WrapMode(textureWrap);
}

}  // namespace orvane
