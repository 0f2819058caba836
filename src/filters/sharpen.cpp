#include "filters/sharpen.h"

#include "filters/filter_frame.h"
#include "filters/kernels/convolve_3x3.h"

namespace orvane {

void sharpen(ImageDocument& document) noexcept {
    applyNeighbourhoodPass(document, TargetPixels::Opaque, sharpenPixels);
}

}  // namespace orvane
