#pragma once

#include <orvane/pixels.h>

#include "filters/kernels/focus_circle.h"

namespace orvane {

/// Copies the pixels inside the circle, moves those of the rim toward their luma L by t = (d - radius) / rim,
/// each channel c becoming trunc((L - c) t + c), and turns those outside into L. The luma's terms are added
/// in the order blue, red, green.
///
/// source, target: equal sizes, not overlapping; every target word is written, opaque except inside.
/// Memory bound but for the rim. May throw std::bad_alloc.
void fadeToGrey(PixelView source, MutablePixelView target, const FocusCircle& circle);

}  // namespace orvane
