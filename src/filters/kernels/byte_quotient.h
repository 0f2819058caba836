#pragma once

#include <cmath>
#include <cstdint>

namespace orvane {

/// How to divide a 32-bit sum by a constant in floating point, so that the quotient, truncated toward zero
/// and then clamped to 0..255, is exactly that of whole numbers. `Real` is float or double.
///
///     quotient = sum x reciprocal + bias, rounded to the nearest whole number
///
/// The bias is half a unit of the sum above the lower end of each step, less the half that rounding to
/// nearest adds. A negative quotient clamps to 0 however it is rounded, so truncation only matters above 0.
template <class Real>
struct ByteReciprocal {
    explicit ByteReciprocal(std::int32_t divisor)
        : reciprocal(Real(1) / static_cast<Real>(divisor)),
          bias(Real(0.5) / std::abs(static_cast<Real>(divisor)) - Real(0.5)) {}

    Real reciprocal;
    Real bias;
};

/// Added to a float between -1 and 256, this leaves the nearest whole number in the low byte of its bits.
constexpr float kRoundingWeight = 3 << 22;

/// Whether single precision is exact for this divisor (not 0). Each of its operations keeps order, so the
/// rounded quotient is a staircase that never falls, and it is right everywhere when it is right on both
/// sides of every step up to 256. Holds for every divisor up to 8192 or so in size and for many above.
inline bool singlePrecisionDivides(std::int32_t divisor) {
    const std::int64_t size = std::abs(std::int64_t{divisor});
    if (size > 65536) return false;  // beyond, not every sum in question is a float
    const ByteReciprocal<float> by(static_cast<std::int32_t>(size));
    const auto quotient = [&by](std::int64_t sum) {
        const float product = static_cast<float>(sum) * by.reciprocal;
        const float biased = product + by.bias;
        return static_cast<std::int64_t>((biased + kRoundingWeight) - kRoundingWeight);
    };
    for (std::int64_t step = 1; step <= 256; ++step) {
        if (quotient(step * size - 1) != step - 1 || quotient(step * size) != step) return false;
    }
    return quotient(0) == 0;
}

}  // namespace orvane
