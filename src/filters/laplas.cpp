#include "filters/laplas.h"

#include "filters/filter_frame.h"
#include "filters/kernels/convolve_3x3.h"

namespace orvane {

void laplas(ImageDocument& document) noexcept {
    applyNeighbourhoodPass(document, TargetPixels::Opaque, laplacePixels);
}

}  // namespace orvane
