#include "filters/noise.h"

#include "base/random_stream.h"
#include "filters/filter_frame.h"
#include "filters/kernels/add_noise.h"

namespace orvane {

void noise(ImageDocument& document, int type, int level) noexcept {
    const NoiseKind kind = type == 0 ? NoiseKind::Grey : NoiseKind::Colour;
    applyPointOperation(document, [=](const Argb* source, Argb* target, std::size_t count) {
        RandomStream stream = SharedRandomStream::take();
        addNoise(source, target, count, kind, level, stream);
        SharedRandomStream::giveBack(stream);
    });
}

}  // namespace orvane
