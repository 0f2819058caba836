#pragma once

#include <cstddef>

#include "filters/kernels/scratch.h"

namespace orvane {

/// Discrete Fourier transforms of one length, in place, of complex numbers whose real and imaginary parts are
/// kept apart. The spectrum comes in bit-reversed order, which costs nothing to convolve in: position p and
/// mirrored(p) hold opposite frequencies.
///
/// Each output of either direction is off by at most kErrorPerStage * stages() times the sum of the
/// magnitudes of the inputs: a stage multiplies by a root that is rounded once, in a product and a sum of two
/// that are rounded once each. Cost: about a cycle per number and stage.
class FourierTransform {
 public:
    /// length: a power of two. May throw std::bad_alloc.
    explicit FourierTransform(std::size_t length);

    /// A power of two of at least this.
    [[nodiscard]] static std::size_t lengthFor(std::size_t count);

    [[nodiscard]] std::size_t length() const { return length_; }
    [[nodiscard]] int stages() const { return stages_; }
    static constexpr double kErrorPerStage = 8.0 / (1ull << 53);

    /// From numbers in their order to the spectrum, and back again times the length.
    void transform(double* real, double* imaginary) const;
    void restore(double* real, double* imaginary) const;

    /// The position of the opposite frequency. The upper half of each power of two is mirrored in itself.
    [[nodiscard]] static std::size_t mirrored(std::size_t position) {
        if (position < 2) return position;
        std::size_t power = 2;
        while (2 * power <= position) power *= 2;
        return 3 * power - 1 - position;
    }

 private:
    std::size_t length_;
    int stages_;
    // Those of the stage that joins halves of h numbers are [h] to [2h - 1].
    Scratch<double> cosines_, sines_;
};

}  // namespace orvane
