#include "filters/aquarelle.h"

#include "filters/filter_frame.h"
#include "filters/kernels/convolve_3x3.h"
#include "filters/kernels/median_window.h"
#include "filters/kernels/scratch.h"

namespace orvane {

void aquarelle(ImageDocument& document, int radius) noexcept {
    if (radius < 0) return;
    applyNeighbourhoodPass(document, TargetPixels::Opaque, [=](PixelView source, MutablePixelView target) {
        Scratch<Argb> memory(source.pixelCount());
        const MutablePixelView between{memory.data(), source.width, source.height, source.width};
        medianOfWindow(source, target, radius);
        sharpenPixels(target, between);
        sharpenPixels(between, target);
    });
}

}  // namespace orvane
