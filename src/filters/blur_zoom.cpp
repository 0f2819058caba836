#include "filters/blur_zoom.h"

#include "filters/filter_frame.h"
#include "filters/kernels/ray_means.h"
#include "filters/path_centre.h"

namespace orvane {

void blurZoom(ImageDocument& document, int x, int y, int strength) noexcept {
    // Rays reach every pixel of a picture but its only one.
    if (document.size() == IntSize{1, 1}) {
        document.pushSnapshot();
        return;
    }
    const IntPoint centre = pathCentre(document, x, y);
    applyNeighbourhoodPass(document, TargetPixels::Opaque, [=](PixelView source, MutablePixelView target) {
        rayMeans(source, target, centre, strength);
    });
}

}  // namespace orvane
