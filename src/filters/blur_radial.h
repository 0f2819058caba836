#pragma once

namespace orvane {

class ImageDocument;

/// Blurs along circles about a centre, as a turning camera does: each pixel on a circle becomes the mean of
/// the pixels of that circle within half the angle to both sides, channel by channel, rounded down. Pixels
/// between the circles become a mean of the 5 x 5 pixels around them. Alpha becomes 255.
///
/// x, y: the centre in image pixels, taken to the nearest pixel off the border. angle: degrees, any; its half
/// is rounded toward zero, and below 0 pixels far enough from the centre become black. One history step; an
/// empty document, or one that finds no memory for the step, stays as it is.
void blurRadial(ImageDocument& document, int x, int y, int angle) noexcept;

}  // namespace orvane
