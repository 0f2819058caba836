#pragma once

namespace orvane {

class ImageDocument;

/// Blurs along a line, as a moving camera does: each pixel becomes the mean of the 2 * radius + 1 pixels of
/// the line through it, channel by channel, rounded down; alpha becomes 255. Coordinates beyond an edge are
/// taken back to it, each by itself.
///
/// radius: below 1 is refused, nothing changes. direction: 0 horizontal, 1 falling to the right, 2 vertical,
/// any other rising to the right. One history step; an empty document, or one that finds no memory for the
/// step, stays as it is. Cost per pixel does not grow with the radius.
void blurMotion(ImageDocument& document, int radius, int direction) noexcept;

}  // namespace orvane
