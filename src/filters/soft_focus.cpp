#include "filters/soft_focus.h"

#include "filters/filter_frame.h"
#include "filters/kernels/soften_around.h"

namespace orvane {

void softFocus(ImageDocument& document, int passes, int radius, int rim, int centreX, int centreY) noexcept {
    if (passes < 1 || radius < 1 || rim < 1) return;
    const FocusCircle circle{radius, rim, centreX, centreY};
    applyNeighbourhoodPass(document, TargetPixels::Final, [&](PixelView source, MutablePixelView target) {
        softenAround(source, target, circle, passes);
    });
}

}  // namespace orvane
