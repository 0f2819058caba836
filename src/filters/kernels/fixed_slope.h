#pragma once

#include <cmath>
#include <cstdint>
#include <optional>

namespace orvane {

/// A factor in 16-bit halves, for products with bytes in 16-bit lanes: whole + fraction / 65536, rounded up
/// so that products meant to be whole numbers do not fall below them. For most hundredths the floor of a
/// product is that of the double-precision product; whoever uses it checks its 256 products first.
struct FixedSlope {
    std::uint16_t whole = 0, fraction = 0;

    /// Nothing for a slope outside 0..127, whose products could leave a signed 16-bit lane.
    [[nodiscard]] static std::optional<FixedSlope> from(double slope) {
        if (!(slope >= 0.0 && slope <= 127.0)) return std::nullopt;
        const auto units = static_cast<std::uint32_t>(std::ceil(slope * 65536.0));
        return FixedSlope{static_cast<std::uint16_t>(units >> 16), static_cast<std::uint16_t>(units)};
    }

    /// The product with a byte, rounded down.
    [[nodiscard]] int times(int byte) const { return byte * whole + (byte * fraction >> 16); }
};

}  // namespace orvane
