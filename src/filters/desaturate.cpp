#include "filters/desaturate.h"

#include "filters/filter_frame.h"
#include "filters/kernels/desaturate_pixels.h"

namespace orvane {

void desaturate(ImageDocument& document) noexcept { applyPointOperation(document, desaturatePixels); }

}  // namespace orvane
