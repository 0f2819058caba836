#pragma once

#include <cstdint>

namespace orvane {

/// The share that consecutive source pixels have in one destination pixel, along one axis:
///
///     head * s[first] + s[first + 1] + ... + s[first + whole] + tail * s[first + whole + 1]
///                                                              + beyond * s[first + whole + 2]
///
/// `whole` is the same for every pixel of an axis, which keeps the loops that use it free of surprises. A
/// pixel of weight 0 may lie one past the picture's end and must not be read.
struct Footprint {
    int first = 0;
    float head = 1, tail = 0, beyond = 0;
};

/// How `sourceLength` pixels are laid out over `targetLength` pixels, both at least 1. Positions are whole
/// fractions, so they are right for every length that a rectangle can have.
class StretchAxis {
 public:
    enum class Kind { Copy, Enlarge, Shrink };

    StretchAxis(int sourceLength, int targetLength) noexcept;

    [[nodiscard]] Kind kind() const noexcept { return kind_; }
    /// Whether each footprint is a pair of whole pixels.
    [[nodiscard]] bool halves() const noexcept { return source_ == 2 * target_; }
    /// Source pixels that every footprint contains with weight 1 (0 unless shrinking by more than 2).
    [[nodiscard]] int whole() const noexcept { return whole_; }
    /// What a weighted sum is multiplied by to be an average.
    [[nodiscard]] float scale() const noexcept { return scale_; }
    /// The footprint of target pixel 0 <= position < targetLength. Shrinking: the stretch of source that the
    /// pixel covers. Enlarging: the two source pixels between whose centres its own centre falls; beyond the
    /// outermost centres the outermost pixel alone.
    [[nodiscard]] Footprint at(int position) const noexcept;

 private:
    [[nodiscard]] Footprint interpolated(int position) const noexcept;
    [[nodiscard]] Footprint covered(int position) const noexcept;

    std::int64_t source_, target_;
    Kind kind_;
    int whole_ = 0;
    float scale_ = 1;
};

}  // namespace orvane
