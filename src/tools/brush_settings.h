#pragma once

#include <optional>
#include <string>

#include <orvane/geometry.h>
#include <orvane/pixels.h>

#include "document/pixel_surface.h"
#include "platform/graphics/brush.h"

namespace orvane {

/// The brush that all filling tools share.
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

    /// What areas are filled with now, if anything. Valid until the settings change.
    [[nodiscard]] std::optional<Brush> current() const noexcept;
    [[nodiscard]] bool isGradient() const noexcept { return style == Gradient; }
};

}  // namespace orvane
