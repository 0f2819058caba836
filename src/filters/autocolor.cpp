#include "filters/autocolor.h"

#include "filters/filter_frame.h"
#include "filters/kernels/channel_range.h"
#include "filters/kernels/map_channels.h"

namespace orvane {

namespace {

ByteTable stretched(unsigned minimum, unsigned maximum) {
    if (minimum == maximum) return makeByteTable([](int channel) { return channel; });
    const double scale = 245.0 / static_cast<int>(maximum - minimum);
    ByteTable table{};  // Values outside the range do not occur in the image.
    for (unsigned channel = minimum; channel <= maximum; ++channel) {
        table[channel] = static_cast<std::uint8_t>(static_cast<int>(channel - minimum) * scale + 5.0);
    }
    return table;
}

}  // namespace

void autocolor(ImageDocument& document) noexcept {
    applyPointOperation(document, [](const Argb* source, Argb* target, std::size_t count) {
        const auto [low, high] = channelRange(source, count);
        mapChannels(source, target, count,
                    {stretched(redOf(low), redOf(high)), stretched(greenOf(low), greenOf(high)),
                     stretched(blueOf(low), blueOf(high))});
    });
}

}  // namespace orvane
