#pragma once

namespace orvane {

class ImageDocument;

/// Twists the image about its centre (width / 2, height / 2) by an angle that grows with the distance from it
/// and is `degrees` at the upper left corner. Pixels move as they are, alpha included, and are drawn over the
/// image; what turns in from outside has the document's bitmapBackColor.
///
/// degrees: 0 is refused, nothing changes; the sign gives the direction. One history step; an empty document,
/// or one that finds no memory for the step, stays as it is.
void twirl(ImageDocument& document, int degrees) noexcept;

}  // namespace orvane
