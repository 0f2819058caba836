#include "tools/stamp_walk.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>
#include <vector>

namespace orvane {
namespace {

std::vector<IntPoint> walkOf(IntPoint from, IntPoint to) {
    const StampWalk walk(from, to);
    std::vector<IntPoint> way;
    for (int step = 0; step <= walk.steps(); ++step) way.push_back(walk.at(step));
    return way;
}

/// The rule as it is stated: of the eight neighbours, clockwise from straight up, the first among those
/// nearest to the line that do not lead away from the end.
std::vector<IntPoint> walkByRule(IntPoint from, IntPoint to) {
    constexpr IntPoint kNeighbours[] = {{0, -1}, {1, -1}, {1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}};
    const double a = from.y - to.y, b = to.x - from.x, c = -(a * from.x + b * from.y);
    const double length = std::sqrt(a * a + b * b);
    const auto toGo = [to](IntPoint p) { return std::abs(to.x - p.x) + std::abs(to.y - p.y); };
    std::vector<IntPoint> way{from};
    double bound = length;
    const int longest = toGo(from);
    for (IntPoint at = from; at != to && int(way.size()) <= longest; bound = 2.0) {
        IntPoint next = at;
        for (const IntPoint offset : kNeighbours) {
            const IntPoint p{at.x + offset.x, at.y + offset.y};
            const double distance = std::fabs(a * p.x + b * p.y + c) / length;
            if (distance < bound && toGo(p) <= toGo(at)) {
                bound = distance;
                next = p;
            }
        }
        at = next;
        way.push_back(at);
    }
    return way;
}

TEST(StampWalk, FollowsTheRuleInEveryDirection) {
    const IntPoint from{-7, 31};
    for (int dy = -40; dy <= 40; ++dy) {
        for (int dx = -40; dx <= 40; ++dx) {
            const IntPoint to{from.x + dx, from.y + dy};
            ASSERT_EQ(walkOf(from, to), walkByRule(from, to)) << dx << ", " << dy;
        }
    }
}

TEST(StampWalk, FollowsTheRuleOverLongWays) {
    std::mt19937 random(5);
    const auto coordinate = [&](int reach) { return int(random() % unsigned(2 * reach)) - reach; };
    std::vector<std::pair<IntPoint, IntPoint>> ways = {{{-32768, -32768}, {32767, 32767}},
                                                       {{32767, -32768}, {-32768, 32767}},
                                                       {{-32768, 32767}, {32767, 32766}},
                                                       {{-32768, -32768}, {-1, 32767}}};
    for (int i = 0; i < 300; ++i) {
        const int reach = i < 250 ? 700 : 32768;
        ways.push_back({{coordinate(reach), coordinate(reach)}, {coordinate(reach), coordinate(reach)}});
    }
    for (const auto& [from, to] : ways) {
        ASSERT_TRUE(walkOf(from, to) == walkByRule(from, to))
            << from.x << ", " << from.y << " to " << to.x << ", " << to.y;
    }
}

}  // namespace
}  // namespace orvane
