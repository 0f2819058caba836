#pragma once

#include "document/image_document.h"
#include "platform/graphics/source_over.h"

/// The frame in which every filter runs: a filter is its parameter test plus its arithmetic. A filter is one
/// history step that enters the history when it is complete: on an empty document, or when memory runs out on
/// the way, nothing changes. Kernels may throw std::bad_alloc.
namespace orvane {

/// What a neighbourhood pass leaves in its target.
enum class TargetPixels {
    Opaque,     ///< alpha 255 everywhere
    Final,      ///< the words of the new state; pixels that the filter skips carry the source's word
    DrawnOver,  ///< words to be drawn over the source: a transparent one keeps the source's pixel
};

/// Runs kernel(PixelView source, MutablePixelView target) as one history step: it reads the previous state
/// and writes every word of a target of the same size.
template <class Kernel>
void applyNeighbourhoodPass(ImageDocument& document, TargetPixels written, Kernel&& kernel) noexcept {
    if (document.isEmpty()) return;
    PixelSurface next = document.prepareState(document.width(), document.height());
    if (next.isNull()) return;
    const PixelView source = document.currentPixels();
    const MutablePixelView target = next.overwrite();
    try {
        kernel(source, target);
    } catch (...) {
        return;
    }
    if (written == TargetPixels::DrawnOver) {
        sourceOver(target.pixels, source.pixels, target.pixels, source.pixelCount());
    } else if (written == TargetPixels::Opaque) {
        next.markOpaque();
    }
    document.pushState(std::move(next));
}

/// Runs a point operation: kernel(const Argb* source, Argb* target, std::size_t count) writes each word,
/// opaque, from the word at the same place.
template <class Kernel>
void applyPointOperation(ImageDocument& document, Kernel&& kernel) noexcept {
    applyNeighbourhoodPass(document, TargetPixels::Opaque,
                           [&kernel](PixelView source, MutablePixelView target) {
                               kernel(source.pixels, target.pixels, source.pixelCount());
                           });
}

}  // namespace orvane
