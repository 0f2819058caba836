#include "control/trail_layer.h"

#include <cstring>

namespace orvane {

void TrailLayer::paint(ViewPainter& painter, const ImageDocument& document, Argb background,
                       StrokeTool& stroke, MutablePixelView target) noexcept {
    const ViewLook view = lookOfView(document, background, {target.width, target.height});
    const TrailLook trail = stroke.trailLook();
    const std::size_t length = stroke.trailLength();
    const bool holds =
        view_.showsTheSameAs(view) && trail_ == trail && drawn_ <= length && !picture_.isNull();
    if (!holds) {
        if (picture_.width() != target.width || picture_.height() != target.height) {
            picture_ = PixelSurface::create(target.width, target.height);
        }
        drawn_ = 0;
    }
    const MutablePixelView kept = picture_.write();
    if (!kept) {  // no memory for the layer: everything is painted each time
        painter.paint(document, background, target);
        stroke.drawTrail(target, 0, length);
        return;
    }
    if (!holds) painter.paint(document, background, kept);
    stroke.drawTrail(kept, drawn_, length);
    view_ = view;
    trail_ = trail;
    drawn_ = length;
    std::memcpy(target.pixels, kept.pixels, kept.pixelCount() * sizeof(Argb));
}

}  // namespace orvane
