#pragma once

namespace orvane {

class ImageDocument;

/// Divides the picture into square tiles of one colour each.
///
/// type: 0 takes the word at a tile's centre, alpha included, and draws it over the picture, so that a partly
/// transparent one blends; any other number takes the mean of the tile with its centre counted twice, opaque.
/// radius: from 1 (below: nothing happens); tiles are 2 * radius + 1 pixels square, the first one in the top
/// left corner. Tiles whose centre would lie outside are not drawn, so that at the right and the bottom a
/// strip of at most `radius` pixels stays as it is; a radius beyond either side changes nothing.
/// One history step, even when nothing changes; an empty document, or one that finds no memory for the step,
/// stays as it is.
void mosaic(ImageDocument& document, int type, int radius) noexcept;

}  // namespace orvane
