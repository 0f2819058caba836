#include "filters/temperature.h"

#include "filters/filter_frame.h"
#include "filters/kernels/scale_channels.h"

namespace orvane {

void temperature(ImageDocument& document, int percent) noexcept {
    if (percent < -100 || percent > 100) return;
    const double t = percent * 0.01;
    const ChannelLines lines{{1.0 + t}, {1.0}, {1.0 - t}};
    applyPointOperation(document, [&](const Argb* source, Argb* target, std::size_t count) {
        scaleChannels(source, target, count, lines);
    });
}

}  // namespace orvane
