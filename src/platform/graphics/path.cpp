#include "platform/graphics/path.h"

namespace orvane {

void Path::lineTo(PlanePoint to) {
    if (points.empty() || !(points.back().position == to)) points.push_back({to, {}, {}});
}

void Path::curveTo(PlanePoint to, PlanePoint direction) {
    if (points.empty() || !(points.back().position == to)) points.push_back({to, direction, direction});
}

void Path::finish(PathEnds ends) noexcept {
    closed = ends == PathEnds::Closed;
    while (closed && points.size() > 1 && points.back().position == points.front().position) {
        points.front().arriving = points.back().arriving;
        points.pop_back();
    }
}

}  // namespace orvane
