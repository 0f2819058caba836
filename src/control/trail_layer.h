#pragma once

#include <cstddef>

#include <orvane/pixels.h>

#include "document/image_document.h"
#include "document/pixel_surface.h"
#include "tools/stroke_tool.h"
#include "view/draw_view.h"

namespace orvane {

/// The view with the pieces of a growing stroke painted on it, kept from one redraw to the next, so that a
/// redraw paints only the pieces that are new: a move costs the same however long the stroke has become.
class TrailLayer {
 public:
    /// Writes view and stroke to the target, which has the view's size: the pixels that painting the view and
    /// then drawing the whole stroke would give.
    void paint(ViewPainter& painter, const ImageDocument& document, Argb background, StrokeTool& stroke,
               MutablePixelView target) noexcept;
    /// Gives the memory back.
    void release() noexcept { *this = {}; }

 private:
    PixelSurface picture_;
    ViewLook view_;    ///< what lies under the stroke
    TrailLook trail_;  ///< how the pieces look
    std::size_t drawn_ = 0;
};

}  // namespace orvane
