#pragma once

#include <cmath>

/// Maps of the plane that keep lines straight: plain values, the identity when default-constructed.
namespace orvane {

struct PlanePoint {
    double x = 0, y = 0;
};

/// Takes (x, y) to (xx x + xy y + x0, yx x + yy y + y0).
struct AffineMap {
    double xx = 1, xy = 0, x0 = 0;
    double yx = 0, yy = 1, y0 = 0;

    [[nodiscard]] static AffineMap translation(double dx, double dy) noexcept { return {1, 0, dx, 0, 1, dy}; }
    [[nodiscard]] static AffineMap scaling(double sx, double sy) noexcept { return {sx, 0, 0, 0, sy, 0}; }
    /// About the origin; clockwise on a screen, whose y axis points down.
    [[nodiscard]] static AffineMap rotation(double radians) noexcept {
        const double sine = std::sin(radians), cosine = std::cos(radians);
        return {cosine, -sine, 0, sine, cosine, 0};
    }

    [[nodiscard]] PlanePoint operator()(PlanePoint p) const noexcept {
        return {xx * p.x + xy * p.y + x0, yx * p.x + yy * p.y + y0};
    }
    /// What comes of doing `first`, then this.
    [[nodiscard]] AffineMap after(const AffineMap& first) const noexcept {
        return {xx * first.xx + xy * first.yx,      xx * first.xy + xy * first.yy,
                xx * first.x0 + xy * first.y0 + x0,  //
                yx * first.xx + yy * first.yx,      yx * first.xy + yy * first.yy,
                yx * first.x0 + yy * first.y0 + y0};
    }
    /// The way back. A map that flattens the plane has none: the result then is not finite.
    [[nodiscard]] AffineMap inverse() const noexcept {
        const double scale = 1.0 / (xx * yy - xy * yx);
        return {yy * scale,  -xy * scale, (xy * y0 - yy * x0) * scale,
                -yx * scale, xx * scale,  (yx * x0 - xx * y0) * scale};
    }
};

}  // namespace orvane
