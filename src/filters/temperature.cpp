#include "filters/temperature.h"

#include "base/truncate.h"
#include "filters/filter_frame.h"
#include "filters/kernels/map_channels.h"

namespace orvane {

void temperature(ImageDocument& document, int percent) noexcept {
    if (percent < -100 || percent > 100) return;
    const double t = percent * 0.01;
    const auto scaledBy = [](double factor) {
        return makeByteTable([=](int channel) { return clampToByte(truncateToInt(channel * factor)); });
    };
    const ByteTable unchanged = makeByteTable([](int channel) { return channel; });
    const ChannelTables tables{scaledBy(1.0 + t), unchanged, scaledBy(1.0 - t)};
    applyPointOperation(document, [&](const Argb* source, Argb* target, std::size_t count) {
        mapChannels(source, target, count, tables);
    });
}

}  // namespace orvane
