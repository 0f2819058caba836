#include "filters/contrast.h"

#include <algorithm>
#include <cmath>

#include "filters/filter_frame.h"
#include "filters/kernels/map_channels.h"

namespace orvane {

void contrast(ImageDocument& document, int percent) noexcept {
    const double s = percent * 0.01;
    const double offset = std::trunc((1.0 - s) * 127.0);
    // The whole numbers stay in double precision, where the sum of two of them cannot overflow.
    const ByteTable table = makeByteTable([=](int channel) {
        return static_cast<int>(std::clamp(std::trunc(channel * s) + offset, 0.0, 255.0));
    });
    applyPointOperation(document, [&](const Argb* source, Argb* target, std::size_t count) {
        mapChannels(source, target, count, {table, table, table});
    });
}

}  // namespace orvane
