#pragma once

#include <orvane/pixels.h>

#include "filters/kernels/focus_circle.h"

namespace orvane {

/// Runs passes of 3 x 3 means over the picture outside a circle:
///
///     1  1  1
///     1 cw  1    / (8 + cw), rounded down, alpha 255; pixels beyond an edge repeat the edge pixel
///     1  1  1
///
/// with cw = 2 outside, and trunc((rim - ((rim - 1) / rim) (d - radius)) 2) at distance d on the rim, held
/// within 32 bits, as are the sums, which wrap. Pixels inside keep R, G and B, and are drawn over themselves
/// (see sourceOver) once per pass.
///
/// source, target: equal sizes, not overlapping. passes, circle.radius, circle.rim: from 1.
/// The picture is read and written once for eight passes. Scratch memory: some 30 bytes per column and pass,
/// for eight passes at most. May throw std::bad_alloc.
void softenAround(PixelView source, MutablePixelView target, const FocusCircle& circle, int passes);

}  // namespace orvane
