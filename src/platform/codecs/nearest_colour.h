#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include <orvane/pixels.h>

/// Distances between colours and the search for the closest entry of a palette.
namespace orvane {

/// How much a difference in red, green and blue counts, squared: a little as the eye has it.
inline constexpr std::array<int, 3> kColourWeights = {2, 3, 2};

/// Finds the closest of up to 256 colours, exactly. The colour cube is divided into cells; each keeps the few
/// entries that can be closest to any colour within it, collected when the cell is first asked for.
class NearestColour {
 public:
    /// May throw std::bad_alloc. Alpha is ignored; there must be at least one colour.
    explicit NearestColour(std::span<const Argb> palette);

    /// The index of the closest colour, channels 0..255. May throw std::bad_alloc.
    [[nodiscard]] int find(int red, int green, int blue) {
        std::uint32_t& start = cellStarts_[std::size_t((red >> 3) << 10 | (green >> 3) << 5 | blue >> 3)];
        if (start == 0) start = collectCandidates(red >> 3, green >> 3, blue >> 3);
        return closestCandidate(start, red, green, blue);
    }

 private:
    /// Along one axis and for each entry: its part of the distance to the nearest and furthest colour of a
    /// cell.
    struct AxisBounds {
        std::array<int, 256> nearest{}, furthest{};
    };
    std::uint32_t collectCandidates(int redCell, int greenCell, int blueCell);
    [[nodiscard]] int closestCandidate(std::uint32_t start, int red, int green, int blue) const;

    std::size_t size_;
    std::vector<std::array<int, 3>> entries_;
    std::vector<AxisBounds> bounds_;         ///< all cells along red, then green, then blue
    std::vector<std::uint32_t> cellStarts_;  ///< place in candidates_, 0 for a cell not yet asked for
    std::vector<std::uint8_t> candidates_;   ///< per cell the count less 1, then the indices
};

}  // namespace orvane
