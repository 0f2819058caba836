#pragma once

#include <orvane/pixels.h>

#include "tools/tool_settings.h"

namespace orvane {

/// Gives every pixel the alpha of the pattern and keeps its colour; pixels of the mask colour become
/// transparent. What the alphas were before does not count.
///
///     style 0  the first transparency everywhere
///     1, 2     from the first one to the second, downward, rightward
///     3, 4     in circles around the top-left, the top-right corner
///     5        in circles around the centre, the second one at the corners
///     6        the same up to the largest circle inside; transparent beyond
///
/// Two transparencies of 255 make every style opaque. One pass, one root per pixel for the circles.
void applyStampPattern(MutablePixelView picture, const StampSettings& settings) noexcept;

}  // namespace orvane
