#pragma once

#include <orvane/pixels.h>

namespace orvane {

/// Twists a picture about its centre (width / 2, height / 2). A pixel at the offset (dx, dy) from the centre
/// takes the whole word, alpha included, of the source pixel at its offset turned by an angle that grows with
/// the distance, from 0 at the centre to `degrees` at the distance of the upper left corner; places are
/// truncated toward zero. A pixel whose place lies outside becomes `outside`.
///
/// source, target: equal sizes, memory not shared. degrees: any. Writes every target pixel. The places are
/// those that double precision and the C library's sine and cosine give.
void twirlPixels(PixelView source, MutablePixelView target, int degrees, Argb outside) noexcept;

}  // namespace orvane
