#include "geometry/scale_image.h"

#include <algorithm>
#include <climits>
#include <utility>

#include "document/image_document.h"
#include "platform/graphics/stretch.h"

namespace orvane {
namespace {

/// The new length, or 0 when it is none that a picture can have. Factors may be anything, not-a-number
/// included.
int scaledLength(int length, double factor) noexcept {
    const double scaled = length * factor;
    return scaled >= 1.0 && scaled < double(INT_MAX) ? int(scaled) : 0;
}

}  // namespace

void scaleImage(ImageDocument& document, double scaleX, double scaleY) noexcept {
    if (document.isEmpty()) return;
    const int width = scaledLength(document.width(), scaleX),
              height = scaledLength(document.height(), scaleY);
    if (width < 1 || height < 1) return;
    PixelSurface scaled = document.prepareState(width, height);
    if (scaled.isNull()) return;

    const bool isOpaque = document.currentSurface()->isOpaque();
    const MutablePixelView target = scaled.overwrite();
    if (!isOpaque) std::fill_n(target.pixels, target.pixelCount(), Argb{0});
    drawStretched({document.currentPixels(), isOpaque}, {0, 0, width, height}, target,
                  isOpaque ? StretchMode::Replace : StretchMode::Over);
    if (isOpaque) scaled.markOpaque();
    document.pushState(std::move(scaled));
    document.view.centreView();
    document.updateOverflow();
}

}  // namespace orvane
