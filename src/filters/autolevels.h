#pragma once

namespace orvane {

class ImageDocument;

/// Stretches each colour channel on its own. The channel's bounds are found from both ends of its histogram,
/// where the levels passed hold 5 % of a third of the pixels; c becomes (c - lower) x 255 / (upper - lower),
/// truncated and clamped. In a picture so small that 5 % is no pixel, the bounds are 1 and 255. Alpha becomes
/// 255. One history step, even when nothing changes; an empty document, or one that finds no memory for the
/// step, stays as it is. Reads the image twice.
void autolevels(ImageDocument& document) noexcept;

}  // namespace orvane
