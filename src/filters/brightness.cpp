#include "filters/brightness.h"

#include "filters/filter_frame.h"
#include "filters/kernels/add_to_channels.h"

namespace orvane {

void brightness(ImageDocument& document, int red, int green, int blue) noexcept {
    applyPointOperation(document, [=](const Argb* source, Argb* target, std::size_t count) {
        addToChannels(source, target, count, red, green, blue);
    });
}

}  // namespace orvane
