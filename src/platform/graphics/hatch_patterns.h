#pragma once

#include <array>
#include <cstdint>

namespace orvane {

/// A tile of 8 x 8 pixels, top row first: bit x of a row is set where the foreground stands.
using HatchPattern = std::array<std::uint8_t, 8>;

/// The pattern of a hatch style, 0..52; no foreground at all for any other.
[[nodiscard]] HatchPattern hatchPattern(int style) noexcept;

}  // namespace orvane
