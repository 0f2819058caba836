#pragma once

#include <optional>

#include <orvane/geometry.h>

namespace orvane {

/// The ellipse in a box, as far as the angles of arcs and pies need it. Angles are degrees, clockwise on
/// screen from the positive x axis, measured at the centre. Points are whole pixels, truncated.
struct EllipseGeometry {
    IntPoint centre;
    int a = 0, b = 0;  ///< half the width and half the height

    EllipseGeometry(IntPoint corner1, IntPoint corner2) noexcept;

    /// Whether there is room for handles on the ellipse.
    [[nodiscard]] bool hasHandles() const noexcept { return a >= 2 && b >= 2; }
    /// Where the ray from the centre through this point meets the ellipse; nothing for a point at the centre
    /// and for a box without room.
    [[nodiscard]] std::optional<IntPoint> project(IntPoint point) const noexcept;
    /// The point of the ellipse in this direction; nothing without room for handles.
    [[nodiscard]] std::optional<IntPoint> handleAt(double degrees) const noexcept;
    /// The direction in which a point lies, -180 to 180; nothing for the centre.
    [[nodiscard]] std::optional<double> angleOf(IntPoint point) const noexcept;
    /// From the direction of one point clockwise to that of another; nothing when one is the centre.
    [[nodiscard]] std::optional<double> sweepBetween(IntPoint start, IntPoint end) const noexcept;
};

}  // namespace orvane
