#pragma once

namespace orvane {

class ImageDocument;

/// Turns the picture by quarters and mirrors it, as one history step; the view is centred anew.
///
/// type: 0 nothing, 1 a quarter turn clockwise, 2 a half turn, 3 a quarter turn counter-clockwise; 4 to 7 the
/// same, then left and right exchanged. 0 is a step as well. Any other type, an empty document, or no memory:
/// nothing happens.
void rotateFlip(ImageDocument& document, int type) noexcept;

}  // namespace orvane
