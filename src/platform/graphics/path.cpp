#include "platform/graphics/path.h"

#include <algorithm>
#include <cmath>

namespace orvane {
namespace {

constexpr double kTolerance = 0.005;  // pixels between a curve and its chords
constexpr int kStepsAtOnce = 64;  // a longer piece is halved first, so that its invisible half costs little
constexpr int kInvisibleSteps = 16;  // enough for the length, which places the dashes that follow
constexpr int kDeepest = 40;
constexpr double kQuarterTurn = 1.57079632679489661923;

void addPoint(Path& path, PlanePoint p, bool corner) {
    if (!path.points.empty()) {
        PathPoint& last = path.points.back();
        if (last.position.x == p.x && last.position.y == p.y) {
            last.corner = last.corner || corner;
            return;
        }
    }
    path.points.push_back({p, corner});
}

void finish(Path& path, PathEnds ends) {
    path.closed = ends == PathEnds::Closed;
    if (!path.closed) return;
    const auto coincide = [](PlanePoint a, PlanePoint b) { return a.x == b.x && a.y == b.y; };
    while (path.points.size() > 1 && coincide(path.points.back().position, path.points[0].position)) {
        path.points[0].corner = path.points[0].corner || path.points.back().corner;
        path.points.pop_back();
    }
}

PlaneBox boundsOf(std::span<const PlanePoint> points) {
    PlaneBox box{points[0].x, points[0].y, points[0].x, points[0].y};
    for (PlanePoint p : points) {
        box = {std::min(box.left, p.x), std::min(box.top, p.y), std::max(box.right, p.x),
               std::max(box.bottom, p.y)};
    }
    return box;
}

double length(PlanePoint p) { return std::hypot(p.x, p.y); }

PlanePoint middle(PlanePoint a, PlanePoint b) { return (a + b) * 0.5; }

PlanePoint onCubic(const PlanePoint (&c)[4], double t) {
    const double s = 1 - t;
    return c[0] * (s * s * s) + c[1] * (3 * s * s * t) + c[2] * (3 * s * t * t) + c[3] * (t * t * t);
}

// A chord over a part of the parameter that is 1 / n long misses the curve by at most an eighth of the second
// derivative's largest size, divided by n squared.
double stepsForBend(double secondDerivative) {
    return std::max(1.0, std::ceil(std::sqrt(secondDerivative / (8 * kTolerance))));
}

double stepsOfCubic(const PlanePoint (&c)[4]) {
    const double bend = std::max(length(c[0] - c[1] * 2 + c[2]), length(c[1] - c[2] * 2 + c[3]));
    return stepsForBend(6 * bend);
}

// Angles inside a curve count quarter turns, so that the points on the axes are exact.
PlanePoint onEllipse(const PlaneEllipse& e, double quarters) {
    const double whole = std::floor(quarters);
    const double angle = (quarters - whole) * kQuarterTurn;
    const PlanePoint unit{std::cos(angle), std::sin(angle)};
    const PlanePoint turned[4] = {unit, {-unit.y, unit.x}, {-unit.x, -unit.y}, {unit.y, -unit.x}};
    const PlanePoint p = turned[int(whole - 4 * std::floor(whole / 4))];
    return e.centre + PlanePoint{p.x * e.radiusX, p.y * e.radiusY};
}

// The parameter, in quarter turns, at which the ray of this direction meets the ellipse.
double parameterOfRay(const PlaneEllipse& e, double degrees) {
    const double quarters = degrees / 90, whole = std::floor(quarters);
    const double angle = (quarters - whole) * kQuarterTurn;
    const bool alongY = std::fmod(whole, 2) != 0;
    const double ahead = alongY ? e.radiusY : e.radiusX, aside = alongY ? e.radiusX : e.radiusY;
    return whole + std::atan2(std::sin(angle) * ahead, std::cos(angle) * aside) / kQuarterTurn;
}

struct ArcRange {
    double from = 0, to = 0;
    bool whole = false;
};

ArcRange rangeOf(const PlaneEllipse& e, double start, double sweep) {
    start = std::fmod(start, 360);
    const double from = parameterOfRay(e, start);
    if (std::abs(sweep) >= 360) return {from, from + (sweep < 0 ? -4 : 4), true};
    return {from, parameterOfRay(e, start + sweep), false};
}

}  // namespace

PlaneEllipse PathBuilder::placed(IntRect box) const {
    const double radiusX = box.width * 0.5, radiusY = box.height * 0.5;
    return {{box.x + shift_ + radiusX, box.y + shift_ + radiusY}, radiusX, radiusY};
}

void PathBuilder::addCubic(Path& path, const PlanePoint (&c)[4], int depth) const {
    const bool visible = boundsOf(c).touches(visible_);
    double steps = stepsOfCubic(c);
    if (visible && steps > kStepsAtOnce && depth < kDeepest) {
        const PlanePoint start = middle(c[0], c[1]), centre = middle(c[1], c[2]), end = middle(c[2], c[3]);
        const PlanePoint before = middle(start, centre), after = middle(centre, end);
        const PlanePoint half = middle(before, after);
        addCubic(path, {c[0], start, before, half}, depth + 1);
        addCubic(path, {half, after, end, c[3]}, depth + 1);
        return;
    }
    steps = std::min(steps, double(visible ? kStepsAtOnce : kInvisibleSteps));
    for (int i = 1; i < steps; ++i) addPoint(path, onCubic(c, i / steps), false);
    addPoint(path, c[3], false);
}

void PathBuilder::addArcInQuadrant(Path& path, const PlaneEllipse& e, double from, double to,
                                   int depth) const {
    const PlanePoint ends[2] = {onEllipse(e, from), onEllipse(e, to)};
    const bool visible = boundsOf(ends).touches(visible_);
    const double angle = (to - from) * kQuarterTurn;
    double steps = stepsForBend(std::max(e.radiusX, e.radiusY) * angle * angle);
    if (visible && steps > kStepsAtOnce && depth < kDeepest) {
        const double half = from + (to - from) / 2;
        addArcInQuadrant(path, e, from, half, depth + 1);
        addArcInQuadrant(path, e, half, to, depth + 1);
        return;
    }
    steps = std::min(steps, double(visible ? kStepsAtOnce : kInvisibleSteps));
    for (int i = 1; i < steps; ++i) addPoint(path, onEllipse(e, from + (to - from) * (i / steps)), false);
    addPoint(path, ends[1], false);
}

void PathBuilder::addArc(Path& path, const PlaneEllipse& e, double from, double to) const {
    addPoint(path, onEllipse(e, from), true);
    while (from != to) {
        const double next =
            from < to ? std::min(std::floor(from) + 1, to) : std::max(std::ceil(from) - 1, to);
        addArcInQuadrant(path, e, from, next, 0);
        from = next;
    }
    path.points.back().corner = true;
}

Path PathBuilder::polyline(std::span<const IntPoint> points, PathEnds ends) const {
    Path path;
    path.points.reserve(points.size());
    for (IntPoint p : points) addPoint(path, placed(p), true);
    finish(path, ends);
    return path;
}

Path PathBuilder::spline(std::span<const IntPoint> points, PathEnds ends) const {
    Path path;
    const std::size_t count = points.size();
    if (count == 0) return path;
    const bool closed = ends == PathEnds::Closed;
    // Beyond its ends an open spline repeats its first and its last point.
    const auto at = [&](std::size_t i) {
        return placed(points[closed ? i % count : std::min(i, count - 1)]);
    };
    addPoint(path, at(0), true);
    for (std::size_t i = 0; i + (closed ? 0 : 1) < count; ++i) {
        const PlanePoint before = i > 0 ? at(i - 1) : at(closed ? count - 1 : 0);
        const PlanePoint from = at(i), to = at(i + 1), after = at(i + 2);
        const PlanePoint controls[4] = {from, from + (to - before) * (1.0 / 6),
                                        to - (after - from) * (1.0 / 6), to};
        addCubic(path, controls, 0);
        path.points.back().corner = true;
    }
    finish(path, ends);
    return path;
}

Path PathBuilder::beziers(std::span<const IntPoint> points) const {
    Path path;
    if (points.empty()) return path;
    addPoint(path, placed(points[0]), true);
    for (std::size_t i = 0; i + 3 < points.size(); i += 3) {
        addCubic(path,
                 {placed(points[i]), placed(points[i + 1]), placed(points[i + 2]), placed(points[i + 3])}, 0);
        path.points.back().corner = true;
    }
    return path;
}

Path PathBuilder::rectangle(IntRect box) const {
    const double left = box.x + shift_, top = box.y + shift_;
    const double right = left + box.width, bottom = top + box.height;
    return {{{{left, top}}, {{right, top}}, {{right, bottom}}, {{left, bottom}}}, true};
}

Path PathBuilder::ellipse(IntRect box) const { return arc(box, 0, 360); }

Path PathBuilder::arc(IntRect box, double start, double sweep) const {
    const PlaneEllipse e = placed(box);
    const ArcRange range = rangeOf(e, start, sweep);
    Path path;
    addArc(path, e, range.from, range.to);
    if (range.whole) path.points[0].corner = false;
    if (range.whole) path.points.back() = path.points[0];
    finish(path, range.whole ? PathEnds::Closed : PathEnds::Open);
    return path;
}

Path PathBuilder::pie(IntRect box, double start, double sweep) const {
    const PlaneEllipse e = placed(box);
    const ArcRange range = rangeOf(e, start, sweep);
    Path path;
    addPoint(path, e.centre, true);
    addArc(path, e, range.from, range.to);
    if (range.whole) path.points.back() = path.points[1];
    finish(path, PathEnds::Closed);
    return path;
}

}  // namespace orvane
