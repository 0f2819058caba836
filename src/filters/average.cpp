#include "filters/average.h"

#include <algorithm>

#include "filters/filter_frame.h"
#include "filters/kernel_radius.h"
#include "filters/kernels/box_blur.h"

namespace orvane {

void average(ImageDocument& document, std::int32_t centreWeight, int radius) noexcept {
    if (radius < -8 || radius > kMaxKernelRadius) return;
    applyNeighbourhoodPass(document, TargetPixels::Opaque, [=](PixelView source, MutablePixelView target) {
        if (radius < 0) {
            std::fill_n(target.pixels, target.pixelCount(), 0xFF000000u);
        } else {
            centredBoxPixels(source, target, centreWeight, radius);
        }
    });
}

}  // namespace orvane
