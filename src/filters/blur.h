#pragma once

namespace orvane {

class ImageDocument;

/// Replaces every pixel by the mean of the square of 2 * radius + 1 pixels around it, per channel and rounded
/// down; pixels beyond an edge repeat the edge pixel. Alpha becomes 255. radius: from 1; below is refused.
/// The cost does not grow with the radius. One history step; an empty document, or one that finds no memory
/// for the step, stays as it is.
void blur(ImageDocument& document, int radius) noexcept;

}  // namespace orvane
