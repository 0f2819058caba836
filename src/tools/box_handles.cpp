#include "tools/box_handles.h"

#include <utility>

namespace orvane::box_handles {
namespace {

constexpr Rule kRules[kCount] = {
    {Side::First, Side::First, 2, 6, CursorId::SizeNorthwestSoutheast},
    {Side::Middle, Side::First, 1, 5, CursorId::SizeNorthSouth},
    {Side::Second, Side::First, 0, 4, CursorId::SizeNortheastSouthwest},
    {Side::Second, Side::Middle, 7, 3, CursorId::SizeWestEast},
    {Side::Second, Side::Second, 6, 2, CursorId::SizeNorthwestSoutheast},
    {Side::Middle, Side::Second, 5, 1, CursorId::SizeNorthSouth},
    {Side::First, Side::Second, 4, 0, CursorId::SizeNortheastSouthwest},
    {Side::First, Side::Middle, 3, 7, CursorId::SizeWestEast},
};

constexpr int along(Side side, int first, int second) {
    return side == Side::First ? first : side == Side::Second ? second : (first + second) / 2;
}

}  // namespace

const Rule& ruleOf(int handle) noexcept { return kRules[handle]; }

IntPoint centreOf(int handle, IntPoint corner1, IntPoint corner2) noexcept {
    const Rule& rule = kRules[handle];
    return {along(rule.x, corner1.x, corner2.x), along(rule.y, corner1.y, corner2.y)};
}

void move(int handle, IntPoint to, IntPoint& corner1, IntPoint& corner2) noexcept {
    const Rule& rule = kRules[handle];
    if (rule.x != Side::Middle) (rule.x == Side::First ? corner1 : corner2).x = to.x;
    if (rule.y != Side::Middle) (rule.y == Side::First ? corner1 : corner2).y = to.y;
}

void normalise(IntPoint& corner1, IntPoint& corner2, int& grabbed) noexcept {
    if (corner1.x > corner2.x) {
        std::swap(corner1.x, corner2.x);
        if (grabbed >= 0) grabbed = kRules[grabbed].turnedLeftRight;
    }
    if (corner1.y > corner2.y) {
        std::swap(corner1.y, corner2.y);
        if (grabbed >= 0) grabbed = kRules[grabbed].turnedUpDown;
    }
}

}  // namespace orvane::box_handles
