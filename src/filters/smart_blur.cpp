#include "filters/smart_blur.h"

#include "filters/filter_frame.h"
#include "filters/kernel_radius.h"
#include "filters/kernels/flat_box_blur.h"

namespace orvane {

void smartBlur(ImageDocument& document, int radius, int level) noexcept {
    if (radius < 1 || radius > kMaxKernelRadius) return;
    const TargetPixels written = level >= 255 ? TargetPixels::Opaque : TargetPixels::Final;
    applyNeighbourhoodPass(document, written, [=](PixelView source, MutablePixelView target) {
        blurFlatPixels(source, target, radius, level);
    });
}

}  // namespace orvane
