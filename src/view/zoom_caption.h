#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

#include "document/pixel_surface.h"

namespace orvane {

/// The words "Zoomed to 150%", kept as a picture while the number stays: shaping them costs more than a
/// redraw of a small window.
class ZoomCaption {
 public:
    /// Draws the zoom, cut down to whole percent, centred below a point.
    void draw(double zoom, IntPoint topCentre, MutablePixelView target) noexcept;

 private:
    void render(int percent) noexcept;

    PixelSurface picture_;
    IntPoint toPicture_;  // from the point to the picture's top-left corner
    int percent_ = 0;
};

}  // namespace orvane
