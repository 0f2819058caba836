#pragma once

namespace orvane {

class ImageDocument;

/// Makes a picture painted in water colours: the median (see median) of this radius, then sharpened twice
/// (see sharpen), each pass on the result of the one before. Alpha becomes 255.
///
/// radius: from 0, which leaves the sharpening alone; below, nothing happens.
/// One history step; an empty document, or one that finds no memory for the step and for one more picture on
/// the way, stays as it is.
void aquarelle(ImageDocument& document, int radius) noexcept;

}  // namespace orvane
