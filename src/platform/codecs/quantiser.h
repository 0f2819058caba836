#pragma once

#include <cstdint>
#include <vector>

#include <orvane/pixels.h>

/// Pictures of few colours.
namespace orvane {

/// Pixels below this alpha become transparent where a format knows nothing in between.
inline constexpr unsigned kLeastOpaqueAlpha = 128;

struct IndexedPicture {
    std::vector<Argb> palette;          ///< 1..256 entries, opaque but for the transparent one
    int transparentIndex = -1;          ///< -1 when every pixel is opaque
    std::vector<std::uint8_t> indices;  ///< one per pixel, row after row
};

/// Turns a picture into at most `maximumColours` (2..256) colours, the transparent one included. A picture
/// that has no more than that keeps its colours exactly; otherwise a palette is fitted and the error is
/// spread over the neighbours, rows running to and fro. The same picture gives the same result. May throw
/// std::bad_alloc.
[[nodiscard]] IndexedPicture quantise(PixelView picture, int maximumColours = 256);

}  // namespace orvane
