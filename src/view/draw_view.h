#pragma once

#include <cstdint>

#include <orvane/geometry.h>
#include <orvane/pixels.h>

#include "document/image_document.h"
#include "view/rotation_preview.h"
#include "view/scaled_picture.h"

namespace orvane {

/// Everything that a painted view depends on: equal looks are equal pixels. A free rotation's preview, which
/// has an angle besides, never equals another look.
struct ViewLook {
    std::uint64_t contentId = 0;
    IntRect placement;
    IntSize view;
    Argb background = 0, frame = 0;
    bool rotates = false;

    [[nodiscard]] bool showsTheSameAs(const ViewLook& other) const noexcept;
};
[[nodiscard]] ViewLook lookOfView(const ImageDocument& document, Argb background, IntSize view) noexcept;

/// Paints the lower layers of the control: the background, the document's image as its view places it, and
/// the frame around it.
///
/// Painting again without a change copies the visible pixels once; so does panning, but for the strips that
/// come into view. An opaque image at zoom 1 is copied straight from the document. Everything else costs as
/// much as its visible part. While a free rotation is being previewed, the image is shown turned. The memory
/// kept is one raster of the view's size, and what RotationPreview keeps; without it, images are drawn anew
/// each time.
class ViewPainter {
 public:
    /// Views with a shorter side show no image.
    static constexpr int kSmallestView = 16;

    /// Writes every pixel of the target, which has the view's size. The result is that of clearing to the
    /// background, an opaque colour, and drawing image and frame over it.
    void paint(const ImageDocument& document, Argb background, MutablePixelView target) noexcept;

    /// Gives the kept memory back; the next paint draws anew.
    void releaseMemory() noexcept;

 private:
    void paintPicture(const PixelSurface& picture, IntRect placement, IntRect visible, Argb background,
                      MutablePixelView target) noexcept;

    ScaledPicture scaled_;
    RotationPreview turned_;
};

}  // namespace orvane
