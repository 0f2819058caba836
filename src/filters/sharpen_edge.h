#pragma once

namespace orvane {

class ImageDocument;

/// Sharpens (see sharpen) the pixels whose 3 x 3 window has contrast: in each of R, G and B, maximum less
/// minimum is at least `level`. All other pixels stay as they are, alpha included; level 0 and below sharpens
/// everything. One history step, even when nothing changes; an empty document, or one that finds no memory
/// for the step, stays as it is.
void sharpenEdge(ImageDocument& document, int level) noexcept;

}  // namespace orvane
