#include "platform/graphics/curves.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace orvane {
namespace {

// How far a chord may lie from its curve. Where two chords meet they are moved out by half of that, so that
// they cut the curve twice and miss it by half as much, to either side.
constexpr double kSagitta = 0.0065;
constexpr double kMostSteps = 16;  // a curve that may need more is halved first, if it is visible
constexpr double kMostInvisibleSteps = 64;
constexpr int kDeepest = 40;
constexpr double kQuarterTurn = 1.57079632679489661923;

PlaneBox boundsOf(std::span<const PlanePoint> points) {
    PlaneBox box{points[0].x, points[0].y, points[0].x, points[0].y};
    for (PlanePoint p : points) {
        box = {std::min(box.left, p.x), std::min(box.top, p.y), std::max(box.right, p.x),
               std::max(box.bottom, p.y)};
    }
    return box;
}

// A chord over a part of the parameter that is 1 / n long misses the curve by at most an eighth of the second
// derivative's largest size, divided by n squared.
double stepsForBend(double secondDerivative) {
    return std::max(1.0, std::ceil(std::sqrt(secondDerivative / (8 * kSagitta))));
}

struct CurvePoint {
    PlanePoint position, direction;
    PlanePoint bend;  ///< the second derivative
};

struct Cubic {
    PlanePoint c[4];

    [[nodiscard]] PlanePoint bendAtStart() const { return (c[0] - c[1] * 2 + c[2]) * 6; }
    [[nodiscard]] PlanePoint bendAtEnd() const { return (c[1] - c[2] * 2 + c[3]) * 6; }
    [[nodiscard]] double mostStepsNeeded() const {
        return stepsForBend(std::max(length(bendAtStart()), length(bendAtEnd())));
    }
    // Of the second derivative only the part across the way leads off a chord, unless the curve turns back.
    [[nodiscard]] double stepsNeeded() const {
        const PlanePoint start = unit(c[1] - c[0]), end = unit(c[3] - c[2]);
        const PlanePoint centre = unit(c[3] + c[2] - c[1] - c[0]);
        if (dot(start, centre) < 0.5 || dot(centre, end) < 0.5) return mostStepsNeeded();
        const PlanePoint first = bendAtStart(), last = bendAtEnd();
        return stepsForBend(std::max({std::abs(cross(start, first)), std::abs(cross(end, last)),
                                      std::abs(cross(centre, middle(first, last)))}));
    }
    [[nodiscard]] bool touches(const PlaneBox& box) const { return boundsOf(c).touches(box); }

    [[nodiscard]] CurvePoint at(double t) const {
        const double s = 1 - t;
        const PlanePoint a = c[0] * s + c[1] * t, b = c[1] * s + c[2] * t, d = c[2] * s + c[3] * t;
        const PlanePoint before = a * s + b * t, after = b * s + d * t;
        return {before * s + after * t, unit(after - before), bendAtStart() * s + bendAtEnd() * t};
    }
    [[nodiscard]] PlanePoint firstDirection() const {
        for (int i = 1; i < 4; ++i) {
            if (!(c[i] == c[0])) return unit(c[i] - c[0]);
        }
        return {};
    }
    [[nodiscard]] Cubic reversed() const { return {{c[3], c[2], c[1], c[0]}}; }
    [[nodiscard]] Cubic firstHalf() const {
        const PlanePoint a = middle(c[0], c[1]), b = middle(c[1], c[2]), d = middle(c[2], c[3]);
        return {{c[0], a, middle(a, b), middle(middle(a, b), middle(b, d))}};
    }
    [[nodiscard]] Cubic secondHalf() const { return reversed().firstHalf().reversed(); }
};

/// A piece of an ellipse within one quarter turn, so that its ends bound it.
struct QuarterArc {
    const PlaneEllipse& ellipse;
    double from, to;

    [[nodiscard]] double mostStepsNeeded() const {
        return stepsForAcross(std::max(ellipse.radiusX, ellipse.radiusY));
    }
    // Across the way the second derivative grows towards the end of the longer axis.
    [[nodiscard]] double stepsNeeded() const {
        const double product = ellipse.radiusX * ellipse.radiusY;
        return stepsForAcross(product / std::min(speedAt(from), speedAt(to)));
    }
    [[nodiscard]] double stepsForAcross(double bend) const {
        const double angle = (to - from) * kQuarterTurn;
        return stepsForBend(bend * angle * angle);
    }
    [[nodiscard]] double speedAt(double quarters) const {
        const double angle = quarters * kQuarterTurn;
        return length({std::sin(angle) * ellipse.radiusX, std::cos(angle) * ellipse.radiusY});
    }
    [[nodiscard]] bool touches(const PlaneBox& box) const {
        const PlanePoint ends[] = {at(0).position, at(1).position};
        return boundsOf(ends).touches(box);
    }
    [[nodiscard]] CurvePoint at(double t) const {
        const double quarters = t < 1 ? from + (to - from) * t : to;
        const double whole = std::floor(quarters), angle = (quarters - whole) * kQuarterTurn;
        const double c = std::cos(angle), s = std::sin(angle);
        const PlanePoint turned[] = {{c, s}, {-s, c}, {-c, -s}, {s, -c}};
        const PlanePoint p = turned[int(whole - 4 * std::floor(whole / 4))];
        const PlanePoint way{p.x * ellipse.radiusX, p.y * ellipse.radiusY};
        const PlanePoint direction = unit({-p.y * ellipse.radiusX, p.x * ellipse.radiusY});
        const double turn = (to - from) * kQuarterTurn;
        return {ellipse.centre + way, from < to ? direction : direction * -1, way * (-turn * turn)};
    }
    [[nodiscard]] QuarterArc firstHalf() const { return {ellipse, from, from + (to - from) / 2}; }
    [[nodiscard]] QuarterArc secondHalf() const { return {ellipse, from + (to - from) / 2, to}; }
};

PlanePoint movedOut(const CurvePoint& p, double steps) {
    const PlanePoint across = p.bend - p.direction * dot(p.bend, p.direction);
    const double size = length(across), by = std::min(size / (16 * steps * steps), kSagitta / 2);
    return size > 0 ? p.position - across * (by / size) : p.position;
}

template <class Curve>
void follow(Path& path, const Curve& curve, const PlaneBox& visible, int depth = 0) {
    const bool isVisible = curve.touches(visible);
    if (isVisible && curve.mostStepsNeeded() > kMostSteps && depth < kDeepest) {
        follow(path, curve.firstHalf(), visible, depth + 1);
        follow(path, curve.secondHalf(), visible, depth + 1);
        return;
    }
    const double steps =
        isVisible ? curve.stepsNeeded() : std::min(curve.mostStepsNeeded(), kMostInvisibleSteps);
    for (double i = 1; i <= steps; ++i) {
        const CurvePoint p = curve.at(i / steps);
        path.curveTo(movedOut(p, steps), p.direction);
    }
}

// The parameter, in quarter turns, at which the ray of this direction meets the ellipse.
double parameterOfRay(const PlaneEllipse& e, double degrees) {
    const double quarters = degrees / 90, whole = std::floor(quarters);
    const double angle = (quarters - whole) * kQuarterTurn;
    const bool alongY = std::fmod(whole, 2) != 0;
    const double ahead = alongY ? e.radiusY : e.radiusX, aside = alongY ? e.radiusX : e.radiusY;
    return whole + std::atan2(std::sin(angle) * ahead, std::cos(angle) * aside) / kQuarterTurn;
}

void endCurve(Path& path, PlanePoint arriving) {
    path.points.back().arriving = arriving;
    path.points.back().leaving = {};
}

}  // namespace

void addCubic(Path& path, const PlanePoint (&controls)[4], const PlaneBox& visible) {
    const Cubic cubic{{controls[0], controls[1], controls[2], controls[3]}};
    const PlanePoint leaving = cubic.firstDirection();
    if (leaving == PlanePoint{}) return;  // all in one place
    path.points.back().leaving = leaving;
    follow(path, cubic, visible);
    path.points.back().position = controls[3];
    endCurve(path, cubic.reversed().firstDirection() * -1);
}

ArcRange arcBetweenRays(const PlaneEllipse& ellipse, double start, double sweep) noexcept {
    start = std::fmod(start, 360);
    const double from = parameterOfRay(ellipse, start);
    if (std::abs(sweep) >= 360) return {from, from + (sweep < 0 ? -4 : 4)};
    return {from, parameterOfRay(ellipse, start + sweep)};
}

void addArc(Path& path, const PlaneEllipse& ellipse, ArcRange range, const PlaneBox& visible) {
    const double step = range.from < range.to ? 1 : -1;
    const CurvePoint start = QuarterArc{ellipse, range.from, range.to}.at(0);
    path.lineTo(start.position);
    path.points.back().leaving = start.direction;
    for (double from = range.from; from != range.to;) {
        const double next =
            step > 0 ? std::min(std::floor(from) + 1, range.to) : std::max(std::ceil(from) - 1, range.to);
        const QuarterArc quarter{ellipse, from, next};
        follow(path, quarter, visible);
        path.points.back().position = quarter.at(1).position;
        from = next;
    }
    endCurve(path, QuarterArc{ellipse, range.from, range.to}.at(1).direction);
    if (std::abs(range.to - range.from) == 4) path.points.back().position = start.position;
}

}  // namespace orvane
