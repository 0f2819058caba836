#include "filters/blur_motion.h"

#include "filters/filter_frame.h"
#include "filters/kernels/line_means.h"

namespace orvane {
namespace {

MotionLine lineOf(int direction) {
    switch (direction) {
        case 0:
            return MotionLine::Horizontal;
        case 1:
            return MotionLine::Falling;
        case 2:
            return MotionLine::Vertical;
        default:
            return MotionLine::Rising;
    }
}

}  // namespace

void blurMotion(ImageDocument& document, int radius, int direction) noexcept {
    if (radius < 1) return;
    applyNeighbourhoodPass(document, TargetPixels::Opaque, [=](PixelView source, MutablePixelView target) {
        lineMeans(source, target, radius, lineOf(direction));
    });
}

}  // namespace orvane
