#pragma once

#include <optional>
#include <string>

#include <orvane/geometry.h>
#include <orvane/pixels.h>

#include "document/pixel_surface.h"
#include "platform/graphics/brush.h"

namespace orvane {

/// The brush that all filling tools share. Whoever changes a property calls the operation that says so,
/// because the texture is a picture of its own, made from its file at certain moments and kept until the next
/// one: also when the file has gone, and then with the alpha and the wrap mode it was made with.
struct BrushSettings {
    enum Style : int { Solid = 0, Gradient = 1, Hatch = 2, Texture = 3 };

    int style = Solid;     ///< BrushStyle; anything else is no brush
    int gradientMode = 0;  ///< BrushGradientStyle, 0..3
    int hatchStyle = 4;    ///< BrushHatchStyle, 0..52
    int textureWrap = 0;   ///< BrushTextureStyle, 0..3
    std::optional<std::u16string> textureFileName;
    IntRect gradientRectangle{0, 0, 10, 10};  ///< where the gradient runs; tools set it before they draw
    Argb colour1 = 0xFFA52A2Au;               ///< BrushColor1, with BrushTransparency in its alpha byte
    Argb colour2 = 0xFF008000u;               ///< BrushColor2; its alpha follows colour1's
    PixelSurface texture;  ///< the texture file's picture with colour1's alpha; null when there is none
    WrapMode wrapOfTexture = WrapMode::Tile;  ///< how that picture repeats

    /// What areas are filled with now, if anything. Valid until the settings change.
    [[nodiscard]] std::optional<Brush> current() const noexcept;
    [[nodiscard]] bool isGradient() const noexcept { return style == Gradient; }

    /// A property has changed: a texture in use is read from its file again, if the file can be opened.
    void rebuild() noexcept;
    /// The file name has changed: the old texture goes, whatever becomes of the new one.
    void textureFileChanged() noexcept;
    /// The alpha of the colours has changed: the texture, in use or not, is read from its file again, if the
    /// file can be opened.
    void transparencyChanged() noexcept;
    void setGradientRectangle(IntRect area) noexcept;

 private:
    void readTexture() noexcept;
};

}  // namespace orvane
