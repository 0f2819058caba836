#pragma once

namespace orvane {

class ImageDocument;

/// Blurs along the rays from a centre, as a zooming lens does: each pixel becomes the mean of the pixels up
/// to k ahead and behind on its ray, channel by channel, rounded down; alpha becomes 255. k grows with the
/// square of the distance from the centre and is `strength` at the farthest corner.
///
/// x, y: the centre in image pixels, taken to the nearest pixel off the border. strength: any; below 0,
/// pixels whose k is negative become black. One history step; an empty document, or one that finds no memory
/// for the step, stays as it is. Memory: a quarter of a picture beyond the new state.
void blurZoom(ImageDocument& document, int x, int y, int strength) noexcept;

}  // namespace orvane
