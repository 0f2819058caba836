#pragma once

#include <orvane/pixels.h>

namespace orvane {

/// The eight ways in which a picture can be turned by quarters and mirrored. A mirrored turn is the turn,
/// then left and right exchanged.
enum class Turn {
    None,
    Clockwise,
    Half,
    CounterClockwise,
    Mirrored,
    ClockwiseMirrored,  ///< rows become columns
    HalfMirrored,       ///< top and bottom exchanged
    CounterClockwiseMirrored,
};

/// Whether width and height change places.
[[nodiscard]] constexpr bool exchangesSides(Turn turn) noexcept { return static_cast<int>(turn) % 2 != 0; }

/// Writes the source, turned, to the target, which has its size, or that with width and height exchanged, and
/// shares no memory with it. Words are moved as they are.
void copyTurned(PixelView source, MutablePixelView target, Turn turn) noexcept;

}  // namespace orvane
