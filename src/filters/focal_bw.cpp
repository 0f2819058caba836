#include "filters/focal_bw.h"

#include "filters/filter_frame.h"
#include "filters/kernels/fade_to_grey.h"

namespace orvane {

void focalBW(ImageDocument& document, int radius, int rim, int centreX, int centreY) noexcept {
    const FocusCircle circle{radius, rim, centreX, centreY};
    applyNeighbourhoodPass(document, TargetPixels::Final, [&](PixelView source, MutablePixelView target) {
        fadeToGrey(source, target, circle);
    });
}

}  // namespace orvane
