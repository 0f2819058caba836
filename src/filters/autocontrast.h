#pragma once

namespace orvane {

class ImageDocument;

/// Stretches the three colour channels alike. The bounds are found from both ends of their joint histogram,
/// where the levels passed hold 5 % of four counts per pixel (the histogram has three); c becomes
/// (c - lower) x 255 / (upper - lower), truncated and clamped. Alpha becomes 255. One history step, even when
/// nothing changes; an empty document, or one that finds no memory for the step, stays as it is. Reads the
/// image twice.
void autocontrast(ImageDocument& document) noexcept;

}  // namespace orvane
