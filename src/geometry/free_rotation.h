#pragma once

#include <orvane/geometry.h>

#include "base/affine_map.h"

namespace orvane {

class ImageDocument;

/// Turning a picture by a small angle without changing its size: it is enlarged just enough to fill its own
/// rectangle, and what is turned out of the rectangle is lost. Angles are degrees, clockwise on the screen.
/// Frames are rectangles whose top-left corner counts as the origin; both sides must be at least 1.

/// How much a turned picture is enlarged: at least 1, and 1 at angle 0. The factor grows with the angle's
/// size and is a little larger to the left than to the right.
[[nodiscard]] float fillFactor(IntSize frame, float angle) noexcept;

/// Takes points of the frame to where they are shown: turned about the frame's centre in whole pixels, then
/// enlarged about its exact centre.
[[nodiscard]] AffineMap freeRotation(IntSize frame, float angle) noexcept;

/// The way back, from points of the frame that shows the turned picture to points of the picture itself,
/// which the frame shows stretched when their sizes differ.
[[nodiscard]] AffineMap turnedToPicture(IntSize frame, float angle, IntSize picture) noexcept;

/// Turns the document's picture by its rotationAngle, as one history step, also at angle 0. The turned
/// picture is drawn over the one before, which shows through where it is transparent. Nothing happens on an
/// empty document or without memory.
void applyRotation(ImageDocument& document) noexcept;

}  // namespace orvane
