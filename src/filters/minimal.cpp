#include "filters/minimal.h"

#include "filters/filter_frame.h"
#include "filters/kernels/window_extremes.h"

namespace orvane {

void minimal(ImageDocument& document, int radius) noexcept {
    if (radius < 0) return;
    applyNeighbourhoodPass(document, TargetPixels::Opaque, [=](PixelView source, MutablePixelView target) {
        windowExtreme(Extreme::Minimum, source, target, radius);
    });
}

}  // namespace orvane
