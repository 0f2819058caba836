#include "filters/kernels/median_window.h"

#include "filters/kernels/add_to_channels.h"
#include "filters/kernels/median_histograms.h"
#include "filters/kernels/median_networks.h"

namespace orvane {

void medianOfWindow(PixelView source, MutablePixelView target, int radius) {
    if (radius == 0) {
        for (int y = 0; y < source.height; ++y) {
            addToChannels(source.row(y), target.row(y), std::size_t(source.width), 0, 0, 0);
        }
    } else if (radius <= kLargestNetworkRadius) {
        medianByNetworks(source, target, radius);
    } else {
        medianByHistograms(source, target, radius);
    }
}

}  // namespace orvane
