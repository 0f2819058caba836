#include "filters/mosaic.h"

#include "filters/filter_frame.h"
#include "filters/kernels/mosaic_tiles.h"

namespace orvane {

void mosaic(ImageDocument& document, int type, int radius) noexcept {
    if (radius <= 0) return;
    const TileColour colour = type == 0 ? TileColour::Centre : TileColour::Mean;
    applyNeighbourhoodPass(document, TargetPixels::Final, [=](PixelView source, MutablePixelView target) {
        mosaicTiles(source, target, colour, radius);
    });
}

}  // namespace orvane
