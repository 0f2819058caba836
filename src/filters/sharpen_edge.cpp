#include "filters/sharpen_edge.h"

#include "filters/filter_frame.h"
#include "filters/kernels/convolve_3x3.h"

namespace orvane {

void sharpenEdge(ImageDocument& document, int level) noexcept {
    const TargetPixels written = level <= 0 ? TargetPixels::Opaque : TargetPixels::Final;
    applyNeighbourhoodPass(document, written, [level](PixelView source, MutablePixelView target) {
        sharpenContrastedPixels(source, target, level);
    });
}

}  // namespace orvane
