#pragma once

#include <orvane/geometry.h>

namespace orvane {

/// The nearest point within +-2^28. Tools store and map no others, so that sums and differences of a few
/// coordinates stay defined whatever the mouse or a mapping says.
[[nodiscard]] constexpr IntPoint bounded(IntPoint point) noexcept {
    constexpr int kLimit = 1 << 28;
    const auto held = [](int value) { return value > kLimit ? kLimit : value < -kLimit ? -kLimit : value; };
    return {held(point.x), held(point.y)};
}

}  // namespace orvane
