#include "filters/kernels/median_window.h"

#include <algorithm>
#include <cstdint>
#include <new>

#include "document/pixel_surface.h"
#include "filters/kernels/add_to_channels.h"
#include "filters/kernels/median_histograms.h"
#include "filters/kernels/median_networks.h"
#include "platform/graphics/turn.h"

namespace orvane {
namespace {

// Histograms stand for the columns under a row of windows, some thousand bytes each: too many for a picture
// that is very wide. Turned, it has few columns, and its medians are the same.
constexpr std::int64_t kMostColumns = 32768;

bool isTooWide(PixelView source, int radius) {
    return source.width > source.height &&
           std::min<std::int64_t>(source.width, 4 * std::int64_t{radius}) > kMostColumns;
}

void medianOfTurned(PixelView source, MutablePixelView target, int radius) {
    PixelSurface turned = PixelSurface::create(source.height, source.width);
    PixelSurface medians = PixelSurface::create(source.height, source.width);
    if (turned.isNull() || medians.isNull()) throw std::bad_alloc();
    copyTurned(source, turned.overwrite(), Turn::ClockwiseMirrored);
    medianByHistograms(turned.read(), medians.overwrite(), radius);
    copyTurned(medians.read(), target, Turn::ClockwiseMirrored);
}

}  // namespace

void medianOfWindow(PixelView source, MutablePixelView target, int radius) {
    if (radius == 0) {
        for (int y = 0; y < source.height; ++y) {
            addToChannels(source.row(y), target.row(y), std::size_t(source.width), 0, 0, 0);
        }
    } else if (radius <= kLargestNetworkRadius) {
        medianByNetworks(source, target, radius);
    } else if (isTooWide(source, radius)) {
        medianOfTurned(source, target, radius);
    } else {
        medianByHistograms(source, target, radius);
    }
}

}  // namespace orvane
