#pragma once

#include <orvane/pixels.h>

namespace orvane {

/// The fixed 3 x 3 kernels. All of them read R, G and B of the source, whose pixels beyond an edge repeat the
/// edge pixel, and clamp what they find to 0..255. source, target: equal sizes, not overlapping. Memory
/// bound.

///      1  0  1
///      0 -8  0    / -4        every target pixel is written, with alpha 255
///      1  0  1
void sharpenPixels(PixelView source, MutablePixelView target) noexcept;

/// Sharpens the pixels whose window has contrast: the smallest of the three channel ranges (maximum less
/// minimum of the 3 x 3 window) is at least `level`. All other target pixels get the source's word.
void sharpenContrastedPixels(PixelView source, MutablePixelView target, int level) noexcept;

///      0 -1  0
///     -1  4 -1                every target pixel is written, with alpha 255
///      0 -1  0
void laplacePixels(PixelView source, MutablePixelView target) noexcept;

///     -1 -1 -1
///     -1  8 -1                every target pixel is written, with alpha 255
///     -1 -1 -1
void outlinePixels(PixelView source, MutablePixelView target) noexcept;

/// Where brightness has to rise for a gradient to show.
enum class Rising { Right, Left, Down, Up };

///     -1  0  1
///     -2  0  2    for Right, turned for the others; every target pixel is written, with alpha 255
///     -1  0  1
void gradientPixels(PixelView source, MutablePixelView target, Rising rising) noexcept;

}  // namespace orvane
