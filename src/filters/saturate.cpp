#include "filters/saturate.h"

#include "filters/filter_frame.h"
#include "filters/kernels/saturate_pixels.h"

namespace orvane {

void saturate(ImageDocument& document, int percent) noexcept {
    applyPointOperation(document, [=](const Argb* source, Argb* target, std::size_t count) {
        saturatePixels(source, target, count, percent);
    });
}

}  // namespace orvane
