#pragma once

#include <algorithm>

#include <orvane/geometry.h>

namespace orvane {

/// The nearest position that a mouse message can carry, whose coordinates have 16 bits with a sign. Tools
/// that count pixels between positions hold them to this range, so that their sums and loops have a bound.
[[nodiscard]] constexpr IntPoint withinMouseRange(IntPoint mouse) noexcept {
    return {std::clamp(mouse.x, -32768, 32767), std::clamp(mouse.y, -32768, 32767)};
}

}  // namespace orvane
