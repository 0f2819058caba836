#pragma once

#include <utility>

#include "document/image_document.h"

namespace orvane {

/// Draws into the image as one history step: draw(MutablePixelView image), by source-over or with opaque
/// colours. Answers whether it was drawn; on an empty document and without memory nothing changes.
template <class Draw>
bool drawIntoImage(ImageDocument& document, Draw&& draw) noexcept {
    if (document.isEmpty()) return false;
    PixelSurface next = *document.currentSurface();
    const bool staysOpaque = next.isOpaque();
    const MutablePixelView image = next.write();
    if (!image) return false;
    draw(image);
    if (staysOpaque) next.markOpaque();
    document.pushState(std::move(next));
    return true;
}

}  // namespace orvane
