#include "filters/sobel.h"

#include "filters/filter_frame.h"
#include "filters/kernels/convolve_3x3.h"

namespace orvane {

void sobel(ImageDocument& document, int type) noexcept {
    const Rising rising = type == 0   ? Rising::Right
                          : type == 1 ? Rising::Left
                          : type == 2 ? Rising::Down
                                      : Rising::Up;
    applyNeighbourhoodPass(
        document, TargetPixels::Opaque,
        [rising](PixelView source, MutablePixelView target) { gradientPixels(source, target, rising); });
}

}  // namespace orvane
