#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

#include <cstdint>

#include "document/pixel_surface.h"

namespace orvane {

/// Draws the part of a picture that lies in `part`, stretched into `placement`. A picture with transparency
/// lies on the background, which the target must not hold yet.
void drawPlacedPicture(const PixelSurface& picture, IntRect placement, IntRect part, Argb background,
                       MutablePixelView target) noexcept;

/// The visible part of a stretched picture on its background, kept from one paint to the next: the same
/// picture in the same place costs nothing, a moved one only the strips that came into view. Holds one opaque
/// raster of the view's size.
class ScaledPicture {
 public:
    /// The raster of the view's size in which `visible` (the part of `placement` inside the view) is up to
    /// date; null when there is no memory for it. Valid until the next call.
    [[nodiscard]] PixelView update(const PixelSurface& picture, IntRect placement, IntRect visible,
                                   IntSize view, Argb background) noexcept;
    /// Gives the memory back.
    void release() noexcept { *this = {}; }

 private:
    // What the kept pixels depend on, but for the place.
    struct Content {
        std::uint64_t contentId = 0;
        IntSize shown;
        Argb background = 0;
        friend bool operator==(const Content&, const Content&) = default;
    };

    // Moves what stays in view to its new place; the rectangle where it is then right.
    IntRect scroll(MutablePixelView pixels, IntRect placement, IntRect visible) const noexcept;

    PixelSurface raster_;
    Content content_;
    IntRect placement_, visible_;  // of the kept pixels
};

}  // namespace orvane
