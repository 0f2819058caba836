#pragma once

#include <cstdint>

#include <orvane/geometry.h>
#include <orvane/pixels.h>

#include "document/pixel_surface.h"
#include "tools/frame_tool.h"
#include "view/zoom_caption.h"

namespace orvane {

/// The panel in the lower right corner of the window that shows where the view lies on an image that
/// overflows it: a thumbnail of the whole image with a rectangle that can be dragged, the zoom, and a button
/// that closes the panel. All points are window pixels unless they are said to be image pixels.
///
/// Thumbnail and caption are kept for as long as image and zoom stay as they are, so that a redraw costs the
/// panel's own pixels.
class ScrollWindow {
 public:
    static constexpr Argb kColour = 0x8C787878u;

    ScrollWindow(const PenSettings& pen, BrushSettings& brush) noexcept : viewRect_(pen, brush) {
        viewRect_.shadeColour = kViewShade;
    }

    void setClientSize(IntSize client) noexcept;
    /// The image pixels at the corners of the visible part. Ignored while the rectangle is dragged.
    void setViewRect(IntPoint corner, IntPoint opposite) noexcept;
    /// Nothing while the panel is not visible. What `press`, `drag` and the rest go by is what was drawn
    /// last.
    void draw(const PixelSurface& image, double zoom, MutablePixelView target) noexcept;

    [[nodiscard]] bool closeButtonHit(IntPoint point) const noexcept { return closeButton_.contains(point); }
    [[nodiscard]] bool thumbnailHit(IntPoint point) const noexcept { return thumbnail_.contains(point); }
    /// Begins a drag when the point is on the view rectangle; answers whether it is.
    bool press(IntPoint point) noexcept;
    /// Answers whether the view rectangle followed the mouse.
    bool drag(IntPoint mouse) noexcept;
    /// The image pixel at the top-left corner of the view rectangle.
    [[nodiscard]] IntPoint targetPoint() const noexcept;
    /// Ends a drag; on the close button, hides the panel and answers true.
    bool release(IntPoint point) noexcept;
    [[nodiscard]] bool isDragging() const noexcept { return dragging_; }

    bool visible = true;
    Argb colour = kColour;

 private:
    static constexpr Argb kViewShade = 0xA0646464u;

    void layOut(IntSize image) noexcept;
    void placeViewRect() noexcept;
    void keepInThumbnail() noexcept;
    void drawPanel(MutablePixelView target) const noexcept;
    void drawThumbnail(const PixelSurface& image, MutablePixelView target) noexcept;
    void drawCloseButton(MutablePixelView target) const noexcept;

    IntSize client_;
    IntSize image_;  // at the last draw
    IntRect panel_, thumbnail_, closeButton_;
    // Its corners are image pixels between setViewRect and the next draw, and window pixels from then on.
    FrameTool viewRect_;
    IntSize viewSize_;  // on the thumbnail; rounding alone does not change it
    bool dragging_ = false;

    ZoomCaption caption_;
    PixelSurface thumbnailPixels_;
    std::uint64_t thumbnailOf_ = 0;  // the contents of which this is the thumbnail
};

}  // namespace orvane
