#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

#include "base/affine_map.h"
#include "platform/graphics/stretch.h"

namespace orvane {

/// Draws a picture turned, sheared or stretched: every pixel of `destination` that lies inside `clip` and the
/// target takes the colour that the picture has where `toSource` leads.
///
/// toSource: from points of the destination to points of the picture, both counted from the rectangle's
/// top-left corner, so that the first pixel has its centre at (0.5, 0.5).
///
/// Colours between the centres of four pixels are interpolated between them, and counted by their alpha when
/// the picture is not opaque. Beyond its edges the picture goes on with its outermost pixels. A picture that
/// should be shown smaller must be averaged first (drawStretched): this samples points and would alias.
///
/// What a destination pixel becomes does not depend on the clip. The identity copies exactly. Nothing is
/// drawn when a map leads more than 2^30 pixels away. Cost follows the pixels drawn; no memory is taken.
void drawTransformed(const StretchSource& source, const AffineMap& toSource, IntRect destination,
                     IntRect clip, MutablePixelView target, StretchMode mode) noexcept;

}  // namespace orvane
