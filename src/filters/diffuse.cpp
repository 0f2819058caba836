#include "filters/diffuse.h"

#include "base/random_stream.h"
#include "filters/filter_frame.h"
#include "filters/kernels/displace_pixels.h"

namespace orvane {

void diffuse(ImageDocument& document, int reach) noexcept {
    if (reach < 1) return;
    applyNeighbourhoodPass(document, TargetPixels::Final, [=](PixelView source, MutablePixelView target) {
        RandomStream stream = SharedRandomStream::take();
        displacePixels(source, target, reach, stream);
        SharedRandomStream::giveBack(stream);
    });
}

}  // namespace orvane
