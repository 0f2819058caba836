#include "filters/blur.h"

#include "filters/filter_frame.h"
#include "filters/kernels/box_blur.h"

namespace orvane {

void blur(ImageDocument& document, int radius) noexcept {
    if (radius < 1) return;
    applyNeighbourhoodPass(
        document, TargetPixels::Opaque,
        [radius](PixelView source, MutablePixelView target) { boxBlurPixels(source, target, radius); });
}

}  // namespace orvane
