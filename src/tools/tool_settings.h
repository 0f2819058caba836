#pragma once

#include <cstdint>

#include <orvane/geometry.h>
#include <orvane/pixels.h>

namespace orvane {

/// Sizes and shapes of the freehand tools.
struct FreehandSettings {
    int brushSize = 4;     ///< ToolBrushSize, 1..11
    int brushStyle = 3;    ///< ToolBrushStyle, 0..5
    int eraserSize = 3;    ///< EraserSize, 1..11
    int sprayRadius = 16;  ///< SprayRadius, 8..50 pixels
};

/// How the image stamp is merged.
struct StampSettings {
    int style = 0;  ///< ImageStyle, the transparency pattern, 0..6
    std::uint8_t transparency1 = 255;
    std::uint8_t transparency2 = 10;
    Argb maskColour = 0xFFFFFFFFu;
    bool useMaskColour = false;
};

}  // namespace orvane
