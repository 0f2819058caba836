#include "filters/hue.h"

#include "filters/filter_frame.h"
#include "filters/kernels/map_grey_levels.h"

namespace orvane {

namespace {

/// One channel of the ramp: 0 at grey level 0, `channel` at `knee`, towards 255 at level 256.
ByteTable ramp(int channel, int knee) {
    const double toKnee = knee > 0 ? 1.0 / knee : 0.0, fromKnee = 1.0 / (256 - knee);
    return makeByteTable([=](int grey) {
        if (grey < knee) return static_cast<int>(channel * (grey * toKnee));
        const double share = (grey - knee) * fromKnee;
        return static_cast<int>((1.0 - share) * channel + share * 255.0);
    });
}

bool isByte(int value) { return value >= 0 && value <= 255; }

}  // namespace

void hue(ImageDocument& document, int red, int green, int blue) noexcept {
    if (!isByte(red) || !isByte(green) || !isByte(blue)) return;
    const int knee = (red + green + blue) / 3;
    const ChannelTables tables{ramp(red, knee), ramp(green, knee), ramp(blue, knee)};
    applyPointOperation(document, [&](const Argb* source, Argb* target, std::size_t count) {
        mapGreyLevels(source, target, count, tables);
    });
}

void sepia(ImageDocument& document) noexcept { hue(document, 160, 133, 107); }

}  // namespace orvane
