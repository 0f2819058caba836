#pragma once

namespace orvane {

class ImageDocument;

/// Shows edges as glowing lines: eight times every pixel less its eight neighbours, clamped to 0..255 and
/// opaque, and then the glow (see glow) of what that gives.
///
/// level, radius, intensity: as for glow; with any of them below 1 there is no glow, only edges.
/// One history step; an empty document, or one that finds no memory for the step and for one more picture on
/// the way, stays as it is.
void glowingEdge(ImageDocument& document, int level, int radius, int intensity) noexcept;

}  // namespace orvane
