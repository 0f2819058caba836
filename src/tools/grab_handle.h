#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

#include "tools/pen_settings.h"

/// The squares by which placed figures are edited. Their size follows the pen, so that a wide line does not
/// hide them.
namespace orvane {

inline constexpr Argb kBlack = 0xFF000000u;
inline constexpr Argb kWhite = 0xFFFFFFFFu;
inline constexpr Argb kYellow = 0xFFFFFF00u;

/// Half the side of a handle, in pixels.
[[nodiscard]] inline int handleRadius(const PenSettings& pen) noexcept {
    return pen.width <= 1.0f ? 3 : static_cast<int>(pen.width) + 1;
}

/// Whether the mouse is on the handle of a vertex or line end.
[[nodiscard]] constexpr bool hitsVertex(IntPoint centre, int radius, IntPoint mouse) noexcept {
    return centre.x - radius <= mouse.x && mouse.x < centre.x + radius + 2 && centre.y - radius <= mouse.y &&
           mouse.y < centre.y + radius + 2;
}

/// Whether the mouse is on the handle of a box or frame: the square lies one pixel further left and up.
[[nodiscard]] constexpr bool hitsBoxHandle(IntPoint centre, int radius, IntPoint mouse) noexcept {
    return centre.x - radius - 1 <= mouse.x && mouse.x < centre.x + radius + 1 &&
           centre.y - radius - 1 <= mouse.y && mouse.y < centre.y + radius + 1;
}

/// A black square of side 2 * radius + 1 in a white one, both as 1-pixel outlines.
void drawGrabHandle(MutablePixelView view, IntPoint centre, int radius) noexcept;

/// The same for any square: a black outline, and one pixel outside it a white one.
void drawHandleSquare(MutablePixelView view, IntRect square) noexcept;

}  // namespace orvane
