#include "tools/ellipse_geometry.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "base/truncate.h"

namespace orvane {
namespace {

constexpr double kDegreesPerRadian = 57.29577957855229;
constexpr double kRadiansPerDegree = 0.0174532925;
constexpr double kFullTurn = 6.2831853;

struct Offset {
    double x, y;

    [[nodiscard]] double length() const noexcept { return std::sqrt(x * x + y * y); }
    [[nodiscard]] bool isZero() const noexcept { return x == 0 && y == 0; }
};

Offset offsetFrom(IntPoint centre, IntPoint point) noexcept {
    return {double(point.x) - centre.x, double(point.y) - centre.y};
}

/// Rounding may carry a cosine past 1.
double angleOfCosine(double cosine) noexcept { return std::acos(std::clamp(cosine, -1.0, 1.0)); }

}  // namespace

EllipseGeometry::EllipseGeometry(IntPoint corner1, IntPoint corner2) noexcept
    : centre{(corner1.x + corner2.x) / 2, (corner1.y + corner2.y) / 2},
      a(std::abs(corner2.x - corner1.x) / 2),
      b(std::abs(corner2.y - corner1.y) / 2) {}

std::optional<IntPoint> EllipseGeometry::project(IntPoint point) const noexcept {
    const Offset d = offsetFrom(centre, point);
    if (a < 1 || b < 1 || d.isZero()) return std::nullopt;
    // Whole numbers throughout, exact for every window; in doubles, so that no picture is too large.
    const double a2 = double(a) * a, b2 = double(b) * b;
    const double k = double(a) * b / std::sqrt(d.x * d.x * b2 + d.y * d.y * a2);
    return IntPoint{truncateToInt(d.x * k + centre.x), truncateToInt(d.y * k + centre.y)};
}

std::optional<IntPoint> EllipseGeometry::handleAt(double degrees) const noexcept {
    if (!hasHandles()) return std::nullopt;
    const double radians = degrees * kRadiansPerDegree;
    return project(
        {truncateToInt(a * std::cos(radians) + centre.x), truncateToInt(a * std::sin(radians) + centre.y)});
}

std::optional<double> EllipseGeometry::angleOf(IntPoint point) const noexcept {
    const Offset s = offsetFrom(centre, point);
    if (s.isZero()) return std::nullopt;
    const double angle = angleOfCosine(s.x / s.length());
    return (s.y < 0 ? -angle : angle) * kDegreesPerRadian;
}

std::optional<double> EllipseGeometry::sweepBetween(IntPoint start, IntPoint end) const noexcept {
    const Offset s = offsetFrom(centre, start), e = offsetFrom(centre, end);
    if (s.isZero() || e.isZero()) return std::nullopt;
    const double between = angleOfCosine((s.x * e.x + s.y * e.y) / (s.length() * e.length()));
    const bool endLiesBehind = e.y * s.x - e.x * s.y < 1;
    return (endLiesBehind ? kFullTurn - between : between) * kDegreesPerRadian;
}

}  // namespace orvane
