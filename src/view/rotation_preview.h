#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

#include <cstdint>

#include "base/affine_map.h"
#include "document/pixel_surface.h"

namespace orvane {

/// Shows a picture turned by an angle and enlarged so that it fills the rectangle in which it is shown, as
/// applyRotation would turn it.
///
/// Where a large picture is shown small, it is averaged to about the size in which the turned picture shows
/// it, so that the preview is as smooth as the plain view, and this copy is kept: the angle decides how large
/// that is, and while it changes a little, drawing costs only the visible pixels. The copy covers about as
/// much as a circle around the view. Without memory for it the picture is drawn all the same, less smoothly.
class RotationPreview {
 public:
    /// Draws the picture, shown in `placement` and turned by `angle` degrees, over what the target holds.
    void draw(const PixelSurface& picture, float angle, IntRect placement, MutablePixelView target) noexcept;
    /// Gives the memory back.
    void release() noexcept { *this = {}; }

 private:
    // Sees to it that the copy shows the part of the averaged picture that lies under these pixels of the
    // placement. False without memory.
    bool average(const PixelSurface& picture, IntSize averaged, const AffineMap& toAveraged,
                 IntRect part) noexcept;

    PixelSurface copy_;
    std::uint64_t contentId_ = 0;  // of the picture that was averaged
    IntSize averaged_;             // the size of the whole picture then
    IntRect covered_;              // the part of it that the copy shows
};

}  // namespace orvane
