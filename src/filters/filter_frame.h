#pragma once

#include "document/image_document.h"

/// The frame in which every filter runs: a filter is its parameter test plus its arithmetic.
namespace orvane {

/// Runs a point operation as one history step: kernel(const Argb* source, Argb* target, std::size_t count)
/// reads the previous state and writes all of the new one, opaque, in one pass; the two never overlap.
/// Nothing happens on an empty document or when memory runs out.
template <class Kernel>
void applyPointOperation(ImageDocument& document, Kernel&& kernel) {
    if (document.isEmpty()) return;
    PixelSurface next = document.prepareState(document.width(), document.height());
    if (next.isNull()) return;
    const PixelView source = document.currentPixels();
    kernel(source.pixels, next.overwrite().pixels, source.pixelCount());
    next.markOpaque();
    document.pushState(std::move(next));
}

}  // namespace orvane
