#include "platform/graphics/stroker.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "platform/graphics/dashes.h"

namespace orvane {
namespace {

constexpr double kMitreLimit = 10;
constexpr double kTolerance = 0.005;  // pixels between a rounded wedge and its chords
constexpr double kMostWedgeSteps = 1000;
constexpr double kWidestPen = 65536;
constexpr double kNoLength = 1e-9;
constexpr std::size_t kMostExpected = 4096;  // edges; of more, most may be out of sight

/// A straight piece of the path. At its ends the pen stands across the directions given there: those of the
/// curve that the line is a chord of, or the line's own.
struct Line {
    PlanePoint from, to, direction;
    double length = 0;  ///< along the curve
    PlanePoint startDirection, endDirection;
    double lost = 0;  ///< by so much, at most, one side of what the pen covers is shorter than the line

    [[nodiscard]] PlanePoint at(double distance) const {
        if (distance <= 0) return from;
        return distance >= length ? to : from + (to - from) * (distance / length);
    }
    [[nodiscard]] PlanePoint directionAt(double distance) const {
        if (distance <= 0) return startDirection;
        if (distance >= length) return endDirection;
        return unit(startDirection + (endDirection - startDirection) * (distance / length));
    }
};

struct StrokedLine {
    Line line;
    double downFromStart = 0, downToEnd = 0;  ///< lengths drawn without a break, from either end
};

struct Range {
    double least, most;
};

/// Adds, line by line, the edges of the rectangles and wedges that the pen covers. Neighbours share an edge
/// inside the stroke, which is left out: a rectangle has caps of its own only where the pen is set down or
/// lifted.
class Stroker {
 public:
    Stroker(AreaFiller& filler, const Pen& pen)
        : filler_(filler), halfWidth_(widthOf(pen) / 2), reach_(reachOf(pen)), dashes_(pen, widthOf(pen)) {}

    void stroke(const Path& path);

 private:
    [[nodiscard]] PlanePoint beside(PlanePoint p, PlanePoint direction, int side) const {
        return p + PlanePoint{direction.y, -direction.x} * (halfWidth_ * side);
    }
    [[nodiscard]] Line lineBetween(const PathPoint& from, const PathPoint& to) const;
    [[nodiscard]] bool isVisible(const Line& line, Range& visible) const;
    StrokedLine strokeLine(const Line& line);
    void strokeDashes(StrokedLine& stroked, Range visible);
    void addSides(const Line& line, double from, double to);
    void addStartCap(const Line& line, double at);
    void addEndCap(const Line& line, double at);
    void meet(const PathPoint& point, const StrokedLine& before, const StrokedLine& after);
    void join(const PathPoint& point, const StrokedLine& lineBefore, const StrokedLine& lineAfter);
    void addOuterSide(const PathPoint& point, PlanePoint before, PlanePoint after, int side);
    void addRound(PlanePoint centre, PlanePoint before, PlanePoint after, int side);
    void addOnSide(PlanePoint from, PlanePoint to, int side) {
        side > 0 ? filler_.addEdge(from, to) : filler_.addEdge(to, from);
    }

    AreaFiller& filler_;
    const double halfWidth_, reach_;
    DashWalk dashes_;
};

// In a bend narrower than the pen the sides of a chord would cross each other, and it has to stay straight.
Line Stroker::lineBetween(const PathPoint& from, const PathPoint& to) const {
    const PlanePoint way = to.position - from.position;
    const double distance = length(way);
    const PlanePoint direction = way * (1 / distance);
    const PlanePoint start = from.leaving == PlanePoint{} ? direction : from.leaving;
    const PlanePoint end = to.arriving == PlanePoint{} ? direction : to.arriving;
    // A curve that leaves its chord at a small angle a and comes back to it at b is longer by (2a^2 - ab +
    // 2b^2) / 30.
    const double a = cross(direction, start), b = cross(direction, end);
    const double along = distance * (1 + (2 * a * a - a * b + 2 * b * b) / 30);
    const double lost = halfWidth_ * (std::abs(a) + std::abs(b));
    if (lost >= distance || dot(start, direction) < 0.5 || dot(end, direction) < 0.5) {
        return {from.position, to.position, direction, along, direction, direction, 0};
    }
    return {from.position, to.position, direction, along, start, end, lost};
}

void Stroker::stroke(const Path& path) {
    const auto& points = path.points;
    if (points.size() < 2) return;
    const std::size_t lines = points.size() - (path.closed ? 0 : 1);
    filler_.expect(std::min(2 * lines + 2, kMostExpected));
    StrokedLine first, previous;
    for (std::size_t i = 0; i < lines; ++i) {
        const PathPoint& to = points[i + 1 < points.size() ? i + 1 : 0];
        const StrokedLine stroked = strokeLine(lineBetween(points[i], to));
        if (i == 0) {
            first = stroked;
        } else {
            meet(points[i], previous, stroked);
        }
        previous = stroked;
    }
    if (path.closed) return meet(points[0], previous, first);
    meet(points[0], {}, first);
    meet(points.back(), previous, {});
}

// Looks along the line and across it: pixels lie within the visible range along, which leaves room for caps
// that are not quite across, and some no farther across than the pen reaches.
bool Stroker::isVisible(const Line& line, Range& visible) const {
    const double width = filler_.raster().width, height = filler_.raster().height;
    visible = {1e300, -1e300};
    Range across = visible;
    for (PlanePoint corner : {PlanePoint{0, 0}, {width, 0}, {width, height}, {0, height}}) {
        const PlanePoint way = corner - line.from;
        const double ahead = dot(way, line.direction), aside = cross(line.direction, way);
        visible = {std::min(visible.least, ahead), std::max(visible.most, ahead)};
        across = {std::min(across.least, aside), std::max(across.most, aside)};
    }
    visible = {visible.least - line.lost - 1, visible.most + line.lost + 1};
    return visible.most >= -reach_ && visible.least <= line.length + reach_ && across.most >= -reach_ &&
           across.least <= reach_;
}

StrokedLine Stroker::strokeLine(const Line& line) {
    StrokedLine stroked{line, 0, 0};
    Range visible{};
    if (!isVisible(line, visible)) {
        if (!dashes_.isSolid()) dashes_.skip(line.length);
        return stroked;
    }
    if (dashes_.isSolid()) {
        addSides(line, 0, line.length);
        stroked.downFromStart = stroked.downToEnd = line.length;
    } else {
        strokeDashes(stroked, visible);
    }
    return stroked;
}

void Stroker::strokeDashes(StrokedLine& stroked, Range visible) {
    const Line& line = stroked.line;
    const double period = dashes_.period();
    if (dashes_.isDown()) stroked.downFromStart = std::min(dashes_.left(), line.length);
    double at = 0;
    while (at + dashes_.left() <= line.length) {
        const double end = at + dashes_.left();
        if (dashes_.isDown()) {
            addSides(line, at, end);
            if (at > 0) addStartCap(line, at);
            addEndCap(line, end);
        }
        dashes_.advance(dashes_.left());
        // Whole periods before and behind the raster are passed over.
        const double invisible = end < visible.least  ? std::min(visible.least, line.length) - end
                                 : end > visible.most ? line.length - end
                                                      : 0;
        at = end + std::floor(invisible / period) * period;
    }
    if (line.length - at <= kNoLength) return;
    if (dashes_.isDown()) {
        addSides(line, at, line.length);
        if (at > 0) addStartCap(line, at);
        stroked.downToEnd = line.length - at;
    }
    dashes_.advance(line.length - at);
}

void Stroker::addSides(const Line& line, double from, double to) {
    const PlanePoint start = line.at(from), startDirection = line.directionAt(from);
    const PlanePoint end = line.at(to), endDirection = line.directionAt(to);
    for (int side : {1, -1}) {
        addOnSide(beside(start, startDirection, side), beside(end, endDirection, side), side);
    }
}

void Stroker::addStartCap(const Line& line, double at) {
    const PlanePoint p = line.at(at), direction = line.directionAt(at);
    filler_.addEdge(beside(p, direction, -1), beside(p, direction, 1));
}

void Stroker::addEndCap(const Line& line, double at) {
    const PlanePoint p = line.at(at), direction = line.directionAt(at);
    filler_.addEdge(beside(p, direction, 1), beside(p, direction, -1));
}

void Stroker::meet(const PathPoint& point, const StrokedLine& before, const StrokedLine& after) {
    if (before.downToEnd > 0 && after.downFromStart > 0) {
        join(point, before, after);
    } else if (before.downToEnd > 0) {
        addEndCap(before.line, before.line.length);
    } else if (after.downFromStart > 0) {
        addStartCap(after.line, 0);
    }
}

void Stroker::join(const PathPoint& point, const StrokedLine& lineBefore, const StrokedLine& lineAfter) {
    const PlanePoint before = lineBefore.line.endDirection, after = lineAfter.line.startDirection;
    const double turn = cross(before, after), ahead = dot(before, after);
    if (std::abs(turn) * halfWidth_ < kNoLength && ahead > 0) return;
    const int outer = turn >= 0 ? 1 : -1;
    addOuterSide(point, before, after, outer);
    const PlanePoint from = beside(point.position, before, -outer);
    const PlanePoint to = beside(point.position, after, -outer);
    // Inside the turn the pen covers one place on both lines. Where each covers the other's corner the short
    // way is covered twice and may be taken; else the edge goes through the point that both share.
    const double shorter =
        std::min(lineBefore.downToEnd - lineBefore.line.lost, lineAfter.downFromStart - lineAfter.line.lost);
    if (ahead > 0 && shorter >= halfWidth_ * std::abs(turn)) return addOnSide(from, to, -outer);
    addOnSide(from, point.position, -outer);
    addOnSide(point.position, to, -outer);
}

void Stroker::addOuterSide(const PathPoint& point, PlanePoint before, PlanePoint after, int side) {
    const PlanePoint from = beside(point.position, before, side), to = beside(point.position, after, side);
    const double ahead = dot(before, after);
    if (point.isSmooth()) {
        addRound(point.position, before, after, side);
    } else if (2 <= kMitreLimit * kMitreLimit * (1 + ahead)) {  // the mitre's length is sqrt(2 / (1 + ahead))
        const PlanePoint tip = point.position + (from + to - point.position * 2) * (1 / (1 + ahead));
        addOnSide(from, tip, side);
        addOnSide(tip, to, side);
    } else {
        addOnSide(from, to, side);
    }
}

void Stroker::addRound(PlanePoint centre, PlanePoint before, PlanePoint after, int side) {
    const double angle = std::atan2(cross(before, after), dot(before, after));
    const double stepAngle = 2 * std::acos(std::max(0.0, 1 - kTolerance / halfWidth_));
    const double steps = std::min(std::ceil(std::abs(angle) / stepAngle), kMostWedgeSteps);
    PlanePoint from = beside(centre, before, side);
    for (double i = 1; i < steps; ++i) {
        const double turned = angle * (i / steps), c = std::cos(turned), s = std::sin(turned);
        const PlanePoint to =
            beside(centre, {before.x * c - before.y * s, before.x * s + before.y * c}, side);
        addOnSide(from, to, side);
        from = to;
    }
    addOnSide(from, beside(centre, after, side), side);
}

}  // namespace

double widthOf(const Pen& pen) noexcept {
    return pen.width >= 1 ? std::min(double(pen.width), kWidestPen) : 1;
}

double reachOf(const Pen& pen) noexcept { return widthOf(pen) / 2 * kMitreLimit; }

void addStroke(AreaFiller& filler, const Path& path, const Pen& pen) { Stroker(filler, pen).stroke(path); }

}  // namespace orvane
