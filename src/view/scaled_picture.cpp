#include "view/scaled_picture.h"

#include <cstdlib>
#include <cstring>

#include "platform/graphics/fill.h"
#include "platform/graphics/stretch.h"

namespace orvane {
namespace {

IntRect moved(const IntRect& rect, int dx, int dy) noexcept {
    return {rect.x + dx, rect.y + dy, rect.width, rect.height};
}

// Copies the pixels that end up in `to` from (dx, dy) before; the two places may overlap.
void movePixels(MutablePixelView pixels, const IntRect& to, int dx, int dy) noexcept {
    for (int i = 0; i < to.height; ++i) {
        const int y = dy > 0 ? to.bottom() - 1 - i : to.y + i;
        std::memmove(pixels.row(y) + to.x, pixels.row(y - dy) + to.x - dx,
                     std::size_t(to.width) * sizeof(Argb));
    }
}

}  // namespace

void drawPlacedPicture(const PixelSurface& picture, IntRect placement, IntRect part, Argb background,
                       MutablePixelView target) noexcept {
    const bool isOpaque = picture.isOpaque();
    if (!isOpaque) fillRect(target, part, background);
    drawStretched({picture.read(), isOpaque}, placement, part, target, StretchMode::Over);
}

PixelView ScaledPicture::update(const PixelSurface& picture, IntRect placement, IntRect visible, IntSize view,
                                Argb background) noexcept {
    if (raster_.width() != view.width || raster_.height() != view.height) {
        release();
        raster_ = PixelSurface::create(view.width, view.height);
    }
    const Content content{
        picture.contentId(), {placement.width, placement.height}, picture.isOpaque() ? 0 : background};
    if (!(content == content_)) visible_ = {};
    if (visible_ == visible && placement_ == placement) return raster_.read();

    const MutablePixelView pixels = raster_.write();
    if (!pixels) return {};
    const IntRect kept = scroll(pixels, placement, visible);
    const auto draw = [&](const IntRect& part) {
        if (!part.isEmpty()) drawPlacedPicture(picture, placement, part, background, pixels);
    };
    if (kept.isEmpty()) {
        draw(visible);
    } else {
        draw({visible.x, visible.y, visible.width, kept.y - visible.y});
        draw({visible.x, kept.bottom(), visible.width, visible.bottom() - kept.bottom()});
        draw({visible.x, kept.y, kept.x - visible.x, kept.height});
        draw({kept.right(), kept.y, visible.right() - kept.right(), kept.height});
    }
    content_ = content;
    placement_ = placement;
    visible_ = visible;
    return pixels;
}

IntRect ScaledPicture::scroll(MutablePixelView pixels, IntRect placement, IntRect visible) const noexcept {
    const std::int64_t dx = std::int64_t{placement.x} - placement_.x,
                       dy = std::int64_t{placement.y} - placement_.y;
    if (visible_.isEmpty() || std::abs(dx) >= pixels.width || std::abs(dy) >= pixels.height) return {};
    const IntRect kept = moved(visible_, int(dx), int(dy)).intersected(visible);
    if (dx != 0 || dy != 0) movePixels(pixels, kept, int(dx), int(dy));
    return kept;
}

}  // namespace orvane
