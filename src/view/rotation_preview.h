#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

#include <array>
#include <cstdint>

#include "base/affine_map.h"
#include "document/pixel_surface.h"

namespace orvane {

/// Shows a picture turned by an angle and enlarged so that it fills the rectangle in which it is shown, as
/// applyRotation would turn it.
///
/// Where a large picture is shown small, it is first averaged to about the size in which the turned picture
/// shows it, so that the preview is as smooth as the plain view. How large that is depends on the angle: a
/// few such copies, each made when it is first needed, serve all angles, and drawing from them costs the
/// visible pixels only. Each covers about as much as a circle around the view. Without memory for a copy the
/// picture is drawn all the same, less smoothly.
class RotationPreview {
 public:
    /// Draws the picture, shown in `placement` and turned by `angle` degrees, over what the target holds.
    void draw(const PixelSurface& picture, float angle, IntRect placement, MutablePixelView target) noexcept;
    /// Gives the memory back.
    void release() noexcept { *this = {}; }

 private:
    /// A part of the picture, averaged.
    struct Copy {
        PixelSurface pixels;
        IntSize whole;    ///< the size of the whole picture when averaged like this
        IntRect covered;  ///< the part that this copy shows
    };
    /// Where the picture is drawn from.
    struct Source {
        const PixelSurface* pixels = nullptr;
        AffineMap fromFrame;  ///< from the placement's pixels to these
    };

    [[nodiscard]] Source sourceFor(const PixelSurface& picture, float angle, IntSize frame,
                                   IntRect part) noexcept;
    // Sees to it that the copy has the pixels inside `needed`. False without memory.
    bool update(Copy& copy, const PixelSurface& picture, IntSize whole, IntRect needed,
                IntRect likely) noexcept;

    static constexpr int kCopies = 6;  // up to an enlargement of 3; beyond, they take turns

    std::array<Copy, kCopies> copies_;
    std::uint64_t contentId_ = 0;  // of the picture that was averaged
    IntSize frame_;                // the size in which it was shown
};

}  // namespace orvane
