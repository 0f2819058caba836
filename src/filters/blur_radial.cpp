#include "filters/blur_radial.h"

#include "filters/filter_frame.h"
#include "filters/kernels/ring_means.h"
#include "filters/path_centre.h"

namespace orvane {
namespace {

constexpr double kRadiansPerDegree = 0.0174532925;

}  // namespace

void blurRadial(ImageDocument& document, int x, int y, int angle) noexcept {
    const IntPoint centre = pathCentre(document, x, y);
    const double halfAngle = (angle / 2) * kRadiansPerDegree;
    applyNeighbourhoodPass(document, TargetPixels::Opaque, [=](PixelView source, MutablePixelView target) {
        ringMeans(source, target, centre, halfAngle);
        fillRingGaps(source, target, centre);
    });
}

}  // namespace orvane
