#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

namespace orvane {

/// Takes the red out of the eye in `area`, which may reach out of the image.
///
/// The bright red pixels (red above 120, green and blue below 90) in the largest circle inside the area tell
/// where the pupil lies: in the circle around their bounding box, one pixel larger, every pixel with a
/// channel below 140 gets half its red and becomes opaque.
void correctRedEye(MutablePixelView image, IntRect area) noexcept;

}  // namespace orvane
