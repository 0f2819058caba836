#pragma once

namespace orvane {

class ImageDocument;

/// Blurs everything outside a circle, softly from its rim.
///
/// passes, radius, rim: from 1; with any of them below, nothing happens. Each pass takes 3 x 3 means of the
/// result of the one before, in which the centre counts twice, and on the rim, which is `rim` pixels wide,
/// the more the nearer to the circle: 2 * rim at its inner edge. Blurred pixels are opaque. Pixels nearer to
/// the centre than `radius` keep their colour; a partly transparent one is drawn over itself in each pass,
/// which makes it more opaque. centreX, centreY: in image pixels, anywhere. Any number of passes is accepted;
/// those after the picture has come to rest cost nothing. One history step; an empty document, or one that
/// finds no memory for the step, stays as it is.
void softFocus(ImageDocument& document, int passes, int radius, int rim, int centreX, int centreY) noexcept;

}  // namespace orvane
