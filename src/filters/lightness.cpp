#include "filters/lightness.h"

#include <algorithm>

#include "base/truncate.h"
#include "filters/filter_frame.h"
#include "filters/kernels/map_channels.h"

namespace orvane {

namespace {

ByteTable scaledBy(int percent) {
    const double factor = percent * 0.01;
    return makeByteTable([=](int channel) { return std::min(truncateToInt(channel * factor), 255); });
}

}  // namespace

void lightness(ImageDocument& document, int redPercent, int greenPercent, int bluePercent) noexcept {
    if (redPercent < 0 || greenPercent < 0 || bluePercent < 0) return;
    const ChannelTables tables{scaledBy(redPercent), scaledBy(greenPercent), scaledBy(bluePercent)};
    applyPointOperation(document, [&](const Argb* source, Argb* target, std::size_t count) {
        mapChannels(source, target, count, tables);
    });
}

}  // namespace orvane
