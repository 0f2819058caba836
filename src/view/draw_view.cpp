#include "view/draw_view.h"

#include <algorithm>

#include "platform/graphics/fill.h"
#include "view/image_frame.h"

namespace orvane {

bool ViewLook::showsTheSameAs(const ViewLook& other) const noexcept {
    return contentId == other.contentId && placement == other.placement && view == other.view &&
           background == other.background && frame == other.frame && !rotates && !other.rotates;
}

ViewLook lookOfView(const ImageDocument& document, Argb background, IntSize view) noexcept {
    const PixelSurface* picture = document.currentSurface();
    return {picture != nullptr ? picture->contentId() : 0,
            document.imageRect(),
            view,
            background,
            document.frameColor,
            document.rotationPreview};
}

void ViewPainter::paint(const ImageDocument& document, Argb background, MutablePixelView target) noexcept {
    if (!target) return;
    const IntSize view{document.view.viewWidth, document.view.viewHeight};
    const IntRect everything{0, 0, target.width, target.height};
    const PixelSurface* const picture = document.currentSurface();
    if (picture == nullptr || view.width < kSmallestView || view.height < kSmallestView) {
        releaseMemory();
        fillRect(target, everything, background);
        return;
    }
    const IntRect placement = document.imageRect();
    const IntRect visible = clippedTo({target.width, target.height}, placement);
    fillAround(target, visible, background);
    // Unturned, the preview is the plain view.
    if (document.rotationPreview && document.rotationAngle != 0.0f) {
        if (!picture->isOpaque()) fillRect(target, visible, background);
        turned_.draw(*picture, document.rotationAngle, placement, target);
    } else {
        turned_.release();
        if (!visible.isEmpty()) paintPicture(*picture, placement, visible, background, target);
    }
    drawImageFrame(target, placement, view, document.frameColor);
}

void ViewPainter::releaseMemory() noexcept {
    scaled_.release();
    turned_.release();
}

void ViewPainter::paintPicture(const PixelSurface& picture, IntRect placement, IntRect visible,
                               Argb background, MutablePixelView target) noexcept {
    PixelView drawn;
    if (placement.width != picture.width() || placement.height != picture.height()) {
        drawn = scaled_.update(picture, placement, visible, {target.width, target.height}, background);
    }
    if (!drawn) {
        drawPlacedPicture(picture, placement, visible, background, target);
        return;
    }
    for (int y = visible.y; y < visible.bottom(); ++y) {
        std::copy_n(drawn.row(y) + visible.x, visible.width, target.row(y) + visible.x);
    }
}

}  // namespace orvane
