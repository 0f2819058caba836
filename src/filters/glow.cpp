#include "filters/glow.h"

#include "filters/filter_frame.h"
#include "filters/kernels/add_glow.h"

namespace orvane {

void glow(ImageDocument& document, int level, int radius, int intensity) noexcept {
    const Glow light{level, radius, intensity};
    if (!light.isValid()) return;
    applyNeighbourhoodPass(document, TargetPixels::Opaque, [&](PixelView source, MutablePixelView target) {
        addGlow(source, target, light);
    });
}

}  // namespace orvane
