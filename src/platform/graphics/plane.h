#pragma once

#include <cmath>

/// Points and boxes of the plane in which shapes are laid out: pixel (x, y) is the square from (x, y) to
/// (x + 1, y + 1), y grows downward.
namespace orvane {

struct PlanePoint {
    double x = 0, y = 0;
    friend bool operator==(const PlanePoint&, const PlanePoint&) = default;
};

constexpr PlanePoint operator+(PlanePoint a, PlanePoint b) { return {a.x + b.x, a.y + b.y}; }
constexpr PlanePoint operator-(PlanePoint a, PlanePoint b) { return {a.x - b.x, a.y - b.y}; }
constexpr PlanePoint operator*(PlanePoint a, double factor) { return {a.x * factor, a.y * factor}; }
constexpr double dot(PlanePoint a, PlanePoint b) { return a.x * b.x + a.y * b.y; }
constexpr double cross(PlanePoint a, PlanePoint b) { return a.x * b.y - a.y * b.x; }

constexpr PlanePoint middle(PlanePoint a, PlanePoint b) { return (a + b) * 0.5; }
inline double length(PlanePoint p) { return std::sqrt(dot(p, p)); }
/// Of length 1, in the same direction; 0 when there is none.
inline PlanePoint unit(PlanePoint p) {
    const double size = length(p);
    return size > 1e-9 ? p * (1 / size) : PlanePoint{};
}

struct PlaneBox {
    double left = 0, top = 0, right = 0, bottom = 0;

    [[nodiscard]] constexpr PlaneBox grown(double by) const {
        return {left - by, top - by, right + by, bottom + by};
    }
    [[nodiscard]] constexpr bool touches(const PlaneBox& other) const {
        return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
    }
};

}  // namespace orvane
