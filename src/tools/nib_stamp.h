#pragma once

#include <array>
#include <cstdint>

#include "tools/nib.h"

namespace orvane {

/// A square or circular nib made ready for being drawn many times: its coverage is found once, since all
/// positions are whole pixels. Gives the pixels of fillRectangle and fillEllipse.
class NibStamp {
 public:
    explicit NibStamp(const Nib& nib) noexcept;

    /// Draws the nib over the target; what lies outside is cut off. The centre lies within +-2^30.
    void draw(MutablePixelView target, IntPoint centre) const noexcept;

 private:
    static constexpr int kLargestSide = 2 * Nib::kLargestSize + 1;

    void findCircle() noexcept;

    Nib nib_;
    std::array<std::uint8_t, kLargestSide * kLargestSide> coverage_;  // rows of kLargestSide
};

}  // namespace orvane
