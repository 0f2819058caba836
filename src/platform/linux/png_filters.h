#pragma once

#include <cstddef>
#include <cstdint>

/// The five row filters of PNG: each predicts a byte from its neighbours to the left (one pixel back), above,
/// and above left; the file holds the difference. What lies outside the picture counts as 0.
namespace orvane::png {

/// Undoes a row's filter in place.
///
/// row: rowBytes bytes; above: the finished row before it, zeros for the first.
/// pixelBytes: bytes of one pixel, at least 1: 1, 2, 3, 4, 6 or 8.
/// False for a filter number that does not exist.
[[nodiscard]] bool undoFilter(std::uint8_t filter, std::uint8_t* row, const std::uint8_t* above,
                              std::size_t rowBytes, std::size_t pixelBytes) noexcept;

/// Filters a row with the filter whose differences have the smallest sum of magnitudes, which is what
/// DEFLATE tends to pack best. out: 1 + rowBytes bytes, the filter number first. scratch: as much again.
/// row and above must not overlap out and scratch; pixelBytes is 3 or 4.
void applyBestFilter(const std::uint8_t* row, const std::uint8_t* above, std::size_t rowBytes,
                     std::size_t pixelBytes, std::uint8_t* out, std::uint8_t* scratch) noexcept;

}  // namespace orvane::png
