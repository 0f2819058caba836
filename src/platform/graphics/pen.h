#pragma once

#include <array>

#include <orvane/pixels.h>

#include "platform/graphics/brush.h"

namespace orvane {

/// Lengths of dashes and gaps in turn, in units of the pen's width. No entry: a solid line.
struct DashPattern {
    static constexpr int kMaxEntries = 6;

    std::array<float, kMaxEntries> lengths{};
    int count = 0;
};

/// What outlines are drawn with: flat caps, mitre joins up to a limit of 10. Widths draw as 1 at least, as
/// 65536 at most.
struct Pen {
    Brush brush;
    float width = 1.0f;  ///< pixels
    DashPattern dash;
    float dashOffset = 0;  ///< where in the pattern a line starts, in units of the width; any sign and size

    Pen() = default;
    explicit Pen(Argb colour, float penWidth = 1.0f) : brush(SolidBrush{colour}), width(penWidth) {}
    Pen(const Brush& penBrush, float penWidth) : brush(penBrush), width(penWidth) {}
};

}  // namespace orvane
