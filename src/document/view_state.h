#pragma once

#include <orvane/geometry.h>

namespace orvane {

/// Where the image is shown: one zoom factor and the window position of the image's centre. These are
/// the fields and the arithmetic that the document itself needs when its image changes; `view/` computes the
/// rest with them.
struct ViewState {
    double zoom = 1.0;          ///< window pixels per image pixel
    double previousZoom = 1.0;  ///< the factor before the last zoom operation
    int viewWidth = 0;          ///< client area of the control's window
    int viewHeight = 0;
    int viewCentreX = 0;  ///< where the centre of the image is shown
    int viewCentreY = 0;
    bool overflowX = false;  ///< the shown image does not lie wholly inside the view
    bool overflowY = false;
    [[nodiscard]] bool overflows() const noexcept { return overflowX || overflowY; }
    int panAnchorX = -1;  ///< last mouse position of a view drag, -1 when there is none
    int panAnchorY = -1;

    /// The rectangle in window pixels in which an image of this size is shown; empty for an empty size.
    [[nodiscard]] IntRect imageRect(IntSize image) const noexcept;
    /// An image that touches the right or bottom edge counts as overflowing.
    void updateOverflow(IntSize image) noexcept;
    void centreView() noexcept;
    /// Fits the image with a margin of 4 pixels in the limiting direction; not bounded. Nothing for an empty
    /// size.
    void zoomToFit(IntSize image) noexcept;
    /// A resize of the window: re-centres, keeps the zoom.
    void setViewSize(IntSize view, IntSize image) noexcept;
    /// The view of a picture just loaded: centred, at 1.0 or, when it does not fit, zoomed to fit.
    void showLoadedImage(IntSize image) noexcept;
};

}  // namespace orvane
