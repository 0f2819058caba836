#include "filters/lightness.h"

#include "filters/filter_frame.h"
#include "filters/kernels/scale_channels.h"

namespace orvane {

void lightness(ImageDocument& document, int redPercent, int greenPercent, int bluePercent) noexcept {
    if (redPercent < 0 || greenPercent < 0 || bluePercent < 0) return;
    const ChannelLines lines{{redPercent * 0.01}, {greenPercent * 0.01}, {bluePercent * 0.01}};
    applyPointOperation(document, [&](const Argb* source, Argb* target, std::size_t count) {
        scaleChannels(source, target, count, lines);
    });
}

}  // namespace orvane
