#pragma once

#include <array>

#include "platform/graphics/pen.h"

namespace orvane {

/// Where along a path a pen is down: walks the pattern of dashes and gaps, in pixels.
///
/// After construction the walk stands at the start of the path.
class DashWalk {
 public:
    /// width: of the pen, which is the unit of its pattern.
    DashWalk(const Pen& pen, double width) noexcept;

    /// A solid line: down for ever.
    [[nodiscard]] bool isSolid() const noexcept { return period_ == 0; }
    [[nodiscard]] bool isDown() const noexcept { return index_ % 2 == 0; }
    /// The way to the next change; above 0.
    [[nodiscard]] double left() const noexcept { return left_; }
    [[nodiscard]] double period() const noexcept { return period_; }

    /// Goes on by a distance up to left(); at its end the pen is lifted or set down.
    void advance(double distance) noexcept;
    /// Goes on by any distance.
    void skip(double distance) noexcept;

 private:
    void next() noexcept;

    std::array<double, 2 * DashPattern::kMaxEntries> lengths_{};
    int count_ = 0, index_ = 0;
    double period_ = 0, left_ = 0;
};

}  // namespace orvane
