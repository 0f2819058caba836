#pragma once

#include <orvane/geometry.h>
#include <orvane/window_services.h>

namespace orvane {

/// The eight handles of a box between two corners.
///
///     0 - 1 - 2        0 is corner 1, 4 is corner 2
///     7       3
///     6 - 5 - 4
namespace box_handles {

inline constexpr int kCount = 8;

/// Where a handle lies along one axis, and so which of the corners it moves.
enum class Side { First, Middle, Second };

struct Rule {
    Side x, y;
    int turnedLeftRight, turnedUpDown;  ///< its number after the box has turned over
    CursorId cursor;
};
[[nodiscard]] const Rule& ruleOf(int handle) noexcept;

[[nodiscard]] IntPoint centreOf(int handle, IntPoint corner1, IntPoint corner2) noexcept;
/// Moves the coordinates that belong to the handle.
void move(int handle, IntPoint to, IntPoint& corner1, IntPoint& corner2) noexcept;
/// Puts the corners in order. A grabbed handle (not below 0) is renumbered with them, so that it stays under
/// the mouse.
void normalise(IntPoint& corner1, IntPoint& corner2, int& grabbed) noexcept;

}  // namespace box_handles
}  // namespace orvane
