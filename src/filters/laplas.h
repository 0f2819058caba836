#pragma once

namespace orvane {

class ImageDocument;

/// Edges by the Laplacian: four times every pixel less its four neighbours above, below, left and right,
/// clamped, for R, G and B; pixels beyond an edge repeat the edge pixel. Alpha becomes 255. One history step;
/// an empty document, or one that finds no memory for the step, stays as it is.
void laplas(ImageDocument& document) noexcept;

}  // namespace orvane
