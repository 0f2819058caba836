#include "filters/glowing_edge.h"

#include "filters/filter_frame.h"
#include "filters/kernels/add_glow.h"
#include "filters/kernels/convolve_3x3.h"
#include "filters/kernels/scratch.h"

namespace orvane {

void glowingEdge(ImageDocument& document, int level, int radius, int intensity) noexcept {
    const Glow light{level, radius, intensity};
    applyNeighbourhoodPass(document, TargetPixels::Opaque, [&](PixelView source, MutablePixelView target) {
        if (!light.isValid()) return outlinePixels(source, target);
        Scratch<Argb> memory(source.pixelCount());
        const MutablePixelView edges{memory.data(), source.width, source.height, source.width};
        outlinePixels(source, edges);
        addGlow(edges, target, light);
    });
}

}  // namespace orvane
