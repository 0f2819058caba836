#pragma once

#include <cstddef>
#include <span>

#include <orvane/geometry.h>
#include <orvane/pixels.h>

namespace orvane {

/// What the brush and the eraser press onto the picture. Bars are swept from one mouse position to the next;
/// squares and circles are stamped at every pixel of the way.
enum class NibShape : int {
    HorizontalBar = 0,
    FallingBar = 1,  ///< falls to the right on screen
    VerticalBar = 2,
    RisingBar = 3,
    Square = 4,
    Circle = 5,
};

struct Nib {
    static constexpr int kLargestSize = 11;

    NibShape shape = NibShape::Square;
    int size = 1;  ///< how far it reaches from its centre, 1..kLargestSize pixels
    Argb colour = 0;

    [[nodiscard]] constexpr bool isBar() const noexcept { return shape < NibShape::Square; }
    /// The rectangle of a square or circle.
    [[nodiscard]] constexpr IntRect boxAround(IntPoint centre) const noexcept {
        return {centre.x - size, centre.y - size, 2 * size + 1, 2 * size + 1};
    }
    friend bool operator==(const Nib&, const Nib&) = default;
};

/// The bar as a line of one pixel. Centres lie within +-2^30, as mapped window positions do.
void drawNibBar(MutablePixelView target, const Nib& nib, IntPoint centre) noexcept;

/// How many points of a way drawNibSweep looks at.
inline constexpr std::size_t kSweptPoints = 10;

/// The line between the last two points of the way, and the area that the bar covers between them. So that no
/// seam shows where that area meets the one before, it is filled together with the end of the way so far, two
/// pixels of it; the colour is therefore opaque. At least two points.
void drawNibSweep(MutablePixelView target, const Nib& nib, std::span<const IntPoint> way) noexcept;

/// Which lines of a dotted cross are drawn.
struct CrossLines {
    bool vertical = true, horizontal = true;
};

/// Dotted black lines through a point, from `reach` pixels before it to reach + 1 pixels behind it. The dots
/// are whole pixels, one in two.
void drawDottedCross(MutablePixelView target, IntPoint centre, int reach, CrossLines lines) noexcept;

}  // namespace orvane
