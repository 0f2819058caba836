#include "filters/contrast.h"

#include <cmath>

#include "filters/filter_frame.h"
#include "filters/kernels/scale_channels.h"

namespace orvane {

void contrast(ImageDocument& document, int percent) noexcept {
    const double s = percent * 0.01;
    const ChannelLine line{s, std::trunc((1.0 - s) * 127.0)};
    applyPointOperation(document, [&](const Argb* source, Argb* target, std::size_t count) {
        scaleChannels(source, target, count, {line, line, line});
    });
}

}  // namespace orvane
