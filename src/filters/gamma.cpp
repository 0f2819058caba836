#include "filters/gamma.h"

#include <cmath>

#include "base/truncate.h"
#include "filters/filter_frame.h"
#include "filters/kernels/map_channels.h"

namespace orvane {

namespace {

constexpr double kSmallestLevel = 0.02;

ByteTable powerCurve(double level) {
    return makeByteTable([=](int channel) {
        if (channel == 0) return 0;
        // An infinite level meets the logarithm 0 of full intensity as not-a-number, which truncates to 0.
        return truncateToInt(255.0 * std::exp2(level * std::log2(channel * (1.0 / 255)))) & 255;
    });
}

}  // namespace

void gamma(ImageDocument& document, double level) noexcept {
    if (!(level >= kSmallestLevel)) return;
    const ByteTable table = powerCurve(level);
    applyPointOperation(document, [&](const Argb* source, Argb* target, std::size_t count) {
        mapChannels(source, target, count, {table, table, table});
    });
}

}  // namespace orvane
