#pragma once

#include <optional>
#include <string>

#include <orvane/pixels.h>

namespace orvane {

/// The brush that all filling tools share.
struct BrushSettings {
    int style = 0;         ///< BrushStyle: 0 solid, 1 gradient, 2 hatch, 3 texture; anything else is no brush
    int gradientMode = 0;  ///< BrushGradientStyle, 0..3
    int hatchStyle = 4;    ///< BrushHatchStyle, 0..52
    int textureWrap = 0;   ///< BrushTextureStyle, 0..3
    std::optional<std::u16string> textureFileName;
    Argb colour1 = 0xFFA52A2Au;  ///< BrushColor1, with BrushTransparency in its alpha byte
    Argb colour2 = 0xFF008000u;  ///< BrushColor2; its alpha follows colour1's
};

}  // namespace orvane
