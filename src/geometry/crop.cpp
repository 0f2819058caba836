#include "geometry/crop.h"

#include <cstring>
#include <utility>

#include "document/image_document.h"
#include "platform/graphics/fill.h"

namespace orvane {

void cropToRectangle(ImageDocument& document, IntRect rectangle) noexcept {
    constexpr int kSmallestSide = 4;
    if (document.isEmpty()) return;
    const IntRect part = clippedTo(document.size(), rectangle);
    if (part.width < kSmallestSide || part.height < kSmallestSide) return;
    PixelSurface cropped = document.prepareState(part.width, part.height);
    if (cropped.isNull()) return;

    const PixelView source = subView(document.currentPixels(), part);
    const MutablePixelView target = cropped.overwrite();
    for (int y = 0; y < part.height; ++y) {
        std::memcpy(target.row(y), source.row(y), std::size_t(part.width) * sizeof(Argb));
    }
    document.pushState(std::move(cropped));
    document.view.centreView();
    document.updateOverflow();
}

}  // namespace orvane
