#pragma once

namespace orvane {

class ImageDocument;

/// Stretches each colour channel from the range that it has in the image to 5..250: c becomes
/// trunc((c - minimum) x 245 / (maximum - minimum) + 5). A channel that has one value throughout keeps it.
/// Alpha becomes 255. One history step, even when nothing changes; an empty document, or one that finds no
/// memory for the step, stays as it is. Reads the image twice.
void autocolor(ImageDocument& document) noexcept;

}  // namespace orvane
