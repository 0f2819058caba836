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
constexpr double kWidestPen = 1e9;
constexpr double kNoLength = 1e-9;

struct Line {
    PlanePoint from, direction;  // of length 1
    double length = 0;

    [[nodiscard]] PlanePoint at(double distance) const { return from + direction * distance; }
};

struct StrokedLine {
    Line line;
    bool downAtStart = false, downAtEnd = false;
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
    [[nodiscard]] bool isVisible(const Line& line, Range& visible) const;
    StrokedLine strokeLine(const Line& line);
    void strokeDashes(StrokedLine& stroked, Range visible);
    void addSides(const Line& line, double from, double to);
    void addStartCap(PlanePoint p, PlanePoint direction);
    void addEndCap(PlanePoint p, PlanePoint direction);
    void meet(const PathPoint& point, const StrokedLine& before, const StrokedLine& after);
    void join(const PathPoint& point, const Line& before, const Line& after);
    void addOuterSide(const PathPoint& point, PlanePoint before, PlanePoint after, int side);
    void addRound(PlanePoint centre, PlanePoint before, PlanePoint after, int side);
    void addOnSide(PlanePoint from, PlanePoint to, int side) {
        side > 0 ? filler_.addEdge(from, to) : filler_.addEdge(to, from);
    }

    AreaFiller& filler_;
    const double halfWidth_, reach_;
    DashWalk dashes_;
};

Line lineBetween(PlanePoint from, PlanePoint to) {
    const PlanePoint way = to - from;
    const double length = std::hypot(way.x, way.y);
    return {from, way * (1 / length), length};
}

void Stroker::stroke(const Path& path) {
    const auto& points = path.points;
    if (points.size() < 2) return;
    const std::size_t lines = points.size() - (path.closed ? 0 : 1);
    StrokedLine first, previous;
    for (std::size_t i = 0; i < lines; ++i) {
        const PlanePoint to = points[i + 1 < points.size() ? i + 1 : 0].position;
        const StrokedLine stroked = strokeLine(lineBetween(points[i].position, to));
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

// Looks along the line and across it: pixels lie within the visible range along, and some no farther across
// than the pen reaches.
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
    return visible.most >= -reach_ && visible.least <= line.length + reach_ && across.most >= -reach_ &&
           across.least <= reach_;
}

StrokedLine Stroker::strokeLine(const Line& line) {
    StrokedLine stroked{line, false, false};
    Range visible{};
    if (!isVisible(line, visible)) {
        if (!dashes_.isSolid()) dashes_.skip(line.length);
        return stroked;
    }
    if (dashes_.isSolid()) {
        addSides(line, 0, line.length);
        stroked.downAtStart = stroked.downAtEnd = true;
    } else {
        strokeDashes(stroked, visible);
    }
    return stroked;
}

void Stroker::strokeDashes(StrokedLine& stroked, Range visible) {
    const Line& line = stroked.line;
    const double period = dashes_.period();
    stroked.downAtStart = dashes_.isDown();
    double at = 0;
    while (at + dashes_.left() <= line.length) {
        const double end = at + dashes_.left();
        if (dashes_.isDown()) {
            addSides(line, at, end);
            if (at > 0) addStartCap(line.at(at), line.direction);
            addEndCap(line.at(end), line.direction);
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
        if (at > 0) addStartCap(line.at(at), line.direction);
        stroked.downAtEnd = true;
    }
    dashes_.advance(line.length - at);
}

void Stroker::addSides(const Line& line, double from, double to) {
    const PlanePoint start = line.at(from), end = line.at(to);
    for (int side : {1, -1}) {
        addOnSide(beside(start, line.direction, side), beside(end, line.direction, side), side);
    }
}

void Stroker::addStartCap(PlanePoint p, PlanePoint direction) {
    filler_.addEdge(beside(p, direction, -1), beside(p, direction, 1));
}

void Stroker::addEndCap(PlanePoint p, PlanePoint direction) {
    filler_.addEdge(beside(p, direction, 1), beside(p, direction, -1));
}

void Stroker::meet(const PathPoint& point, const StrokedLine& before, const StrokedLine& after) {
    if (before.downAtEnd && after.downAtStart) {
        join(point, before.line, after.line);
    } else if (before.downAtEnd) {
        addEndCap(point.position, before.line.direction);
    } else if (after.downAtStart) {
        addStartCap(point.position, after.line.direction);
    }
}

void Stroker::join(const PathPoint& point, const Line& before, const Line& after) {
    const double turn = cross(before.direction, after.direction);
    const double ahead = dot(before.direction, after.direction);
    const int outer = turn >= 0 ? 1 : -1;
    addOuterSide(point, before.direction, after.direction, outer);
    const PlanePoint from = beside(point.position, before.direction, -outer);
    const PlanePoint to = beside(point.position, after.direction, -outer);
    // Inside the turn both rectangles overlap. Where each covers the other's corner the short way is covered
    // twice and may be taken; else the edge goes through the point that both share.
    if (ahead > 0 && std::min(before.length, after.length) >= halfWidth_ * std::abs(turn)) {
        return addOnSide(from, to, -outer);
    }
    addOnSide(from, point.position, -outer);
    addOnSide(point.position, to, -outer);
}

void Stroker::addOuterSide(const PathPoint& point, PlanePoint before, PlanePoint after, int side) {
    const PlanePoint from = beside(point.position, before, side), to = beside(point.position, after, side);
    const double ahead = dot(before, after);
    if (!point.corner) {
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
