#include "filters/monochrome.h"

#include "filters/filter_frame.h"
#include "filters/kernels/threshold_pixels.h"

namespace orvane {

void monochrome(ImageDocument& document, int level, Argb above, Argb notAbove) noexcept {
    applyPointOperation(document, [=](const Argb* source, Argb* target, std::size_t count) {
        thresholdPixels(source, target, count, level, above, notAbove);
    });
}

}  // namespace orvane
