#pragma once

namespace orvane {

class ImageDocument;

/// Twice every pixel less the mean of its four diagonal neighbours: (8 c - the four) / 4, truncated toward
/// zero and clamped, for R, G and B; pixels beyond an edge repeat the edge pixel. Alpha becomes 255. One
/// history step; an empty document, or one that finds no memory for the step, stays as it is.
void sharpen(ImageDocument& document) noexcept;

}  // namespace orvane
