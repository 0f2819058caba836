#include "filters/user_effect.h"

#include "filters/filter_frame.h"
#include "filters/kernels/convolve_small.h"

namespace orvane {

void userEffect(ImageDocument& document, std::span<const std::int32_t> weights) noexcept {
    if (weights.size() != 9 && weights.size() != 25) return;
    applyNeighbourhoodPass(
        document, TargetPixels::Opaque,
        [weights](PixelView source, MutablePixelView target) { convolveSmall(source, target, weights); });
}

}  // namespace orvane
