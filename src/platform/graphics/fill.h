#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

namespace orvane {

/// Replaces the pixels of the part of `area` that lies in the target, alpha included. Rectangles beyond any
/// bound are fine.
void fillRect(MutablePixelView target, IntRect area, Argb colour) noexcept;

/// Replaces every pixel outside `hole`.
void fillAround(MutablePixelView target, IntRect hole, Argb colour) noexcept;

/// The part of `area` that lies in a raster of this size, safe for rectangles whose far edge is beyond 32
/// bits.
[[nodiscard]] IntRect clippedTo(IntSize raster, IntRect area) noexcept;

/// The pixels of a rectangle that lies in the view.
[[nodiscard]] PixelView subView(PixelView view, IntRect part) noexcept;
[[nodiscard]] MutablePixelView subView(MutablePixelView view, IntRect part) noexcept;

}  // namespace orvane
