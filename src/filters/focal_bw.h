#pragma once

namespace orvane {

class ImageDocument;

/// Keeps colour inside a circle and turns the rest grey, with a rim in which the colour fades.
///
/// radius: pixels nearer to the centre than this stay as they are, alpha included. rim: over so many pixels
/// further out each channel moves evenly toward the pixel's luma; all beyond is luma alone. Written pixels
/// are opaque. Any number is accepted: a radius of 0 or less means no circle, a rim of 0 or less none.
/// centreX, centreY: in image pixels, anywhere.
/// One history step; an empty document, or one that finds no memory for the step, stays as it is.
void focalBW(ImageDocument& document, int radius, int rim, int centreX, int centreY) noexcept;

}  // namespace orvane
