#include "filters/emboss.h"

#include "filters/filter_frame.h"
#include "filters/kernels/relief.h"

namespace orvane {

namespace {

constexpr int kFarthest = 10;
constexpr IntPoint kDirections[] = {{0, -1}, {1, -1}, {1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}};

}  // namespace

void emboss(ImageDocument& document, int distance, int direction) noexcept {
    if (distance < -kFarthest || distance > kFarthest) return;
    const IntPoint towards = kDirections[direction >= 0 && direction < 7 ? direction : 7];
    const IntPoint offset{towards.x * distance, towards.y * distance};
    applyNeighbourhoodPass(
        document, TargetPixels::Opaque,
        [offset](PixelView source, MutablePixelView target) { reliefPixels(source, target, offset); });
}

}  // namespace orvane
