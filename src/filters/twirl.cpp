#include "filters/twirl.h"

#include "filters/filter_frame.h"
#include "filters/kernels/twirl_pixels.h"

namespace orvane {

void twirl(ImageDocument& document, int degrees) noexcept {
    if (degrees == 0 || document.isEmpty()) return;
    const Argb outside = document.bitmapBackColor;
    const bool opaque = document.currentSurface()->isOpaque() && alphaOf(outside) == 255;
    applyNeighbourhoodPass(
        document, opaque ? TargetPixels::Opaque : TargetPixels::DrawnOver,
        [=](PixelView source, MutablePixelView target) { twirlPixels(source, target, degrees, outside); });
}

}  // namespace orvane
