#include "filters/invert.h"

#include "filters/filter_frame.h"
#include "filters/kernels/invert_pixels.h"

namespace orvane {

void invert(ImageDocument& document) noexcept { applyPointOperation(document, invertPixels); }

}  // namespace orvane
