#include "geometry/rotate_flip.h"

#include <utility>

#include "document/image_document.h"
#include "platform/graphics/turn.h"

namespace orvane {

void rotateFlip(ImageDocument& document, int type) noexcept {
    if (type < 0 || type > int(Turn::CounterClockwiseMirrored) || document.isEmpty()) return;
    const auto turn = Turn(type);
    if (turn == Turn::None) {
        document.pushSnapshot();
    } else {
        IntSize size = document.size();
        if (exchangesSides(turn)) std::swap(size.width, size.height);
        PixelSurface turned = document.prepareState(size.width, size.height);
        if (turned.isNull()) return;
        copyTurned(document.currentPixels(), turned.overwrite(), turn);
        turned.takeOpacityFrom(*document.currentSurface());
        document.pushState(std::move(turned));
    }
    document.view.centreView();
    document.updateOverflow();
}

}  // namespace orvane
