#include "filters/maximal.h"

#include "filters/filter_frame.h"
#include "filters/kernels/window_extremes.h"

namespace orvane {

void maximal(ImageDocument& document, int radius) noexcept {
    if (radius < 0) return;
    applyNeighbourhoodPass(document, TargetPixels::Opaque, [=](PixelView source, MutablePixelView target) {
        windowExtreme(Extreme::Maximum, source, target, radius);
    });
}

}  // namespace orvane
