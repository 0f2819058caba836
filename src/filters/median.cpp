#include "filters/median.h"

#include "filters/filter_frame.h"
#include "filters/kernels/median_window.h"

namespace orvane {

void median(ImageDocument& document, int radius) noexcept {
    if (radius < 0) return;
    applyNeighbourhoodPass(document, TargetPixels::Opaque, [=](PixelView source, MutablePixelView target) {
        medianOfWindow(source, target, radius);
    });
}

}  // namespace orvane
