#include "filters/gaussian_blur.h"

#include <cstdint>
#include <vector>

#include "filters/filter_frame.h"
#include "filters/kernel_radius.h"
#include "filters/kernels/ring_convolution.h"

namespace orvane {

namespace {

std::vector<std::int32_t> ringWeights(int radius, int fallOff) {
    std::vector<std::int32_t> weights;
    const auto spread = [fallOff](int ring) { return std::int64_t{ring} * ring * fallOff + 1; };
    for (int ring = 0; ring <= radius; ++ring) {
        weights.push_back(static_cast<std::int32_t>(spread(radius) / spread(ring)));
    }
    return weights;
}

}  // namespace

void gaussianBlur(ImageDocument& document, int radius, int fallOff) noexcept {
    if (radius < 1 || radius > kMaxKernelRadius || fallOff < 1) return;
    applyNeighbourhoodPass(document, TargetPixels::Opaque, [=](PixelView source, MutablePixelView target) {
        convolveRings(source, target, ringWeights(radius, fallOff));
    });
}

}  // namespace orvane
