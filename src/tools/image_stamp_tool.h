#pragma once

#include "document/pixel_surface.h"
#include "tools/text_box_tool.h"
#include "tools/tool_settings.h"

namespace orvane {

/// Mode 16: a picture that is dragged into place and then merged into the image. Its alpha is that of a
/// pattern; its colours stay. The pattern's settings outlive a Reset.
class ImageStampTool final : public TextBoxTool {
 public:
    ImageStampTool(const PenSettings& sharedPen, BrushSettings& sharedBrush,
                   const StampSettings& settings) noexcept
        : TextBoxTool(sharedPen, sharedBrush), settings_(settings) {}

    /// Takes a picture, which replaces the one before and gives the box its size. A null one is placed like
    /// any other and shows nothing.
    void setPicture(PixelSurface picture) noexcept;
    /// Gives every pixel its alpha anew; to be called when a setting has changed. Without memory the picture
    /// keeps its alpha.
    void applyPattern() noexcept;
    /// Puts a picture just taken to the top-left corner of the image, inside the window. At a zoom other than
    /// 1 the box's present corners count as image pixels, so that the box takes the zoomed size.
    void place(PointMap imageToWindow, bool atActualSize) noexcept;

    void Reset() noexcept override;
    /// Shows the picture pixel for pixel, as it looks at zoom 1.
    void Draw(MutablePixelView view) noexcept override;
    /// Shows it stretched to the size of the box, for all other zooms.
    void DrawScaled(MutablePixelView view) noexcept;
    /// Merges the picture pixel for pixel. One that is null is a step that changes nothing; without any,
    /// nothing happens.
    void commit(ImageDocument& document, PointMap toImage) noexcept override;
    /// The whole box stays on its image pixels.
    void reproject(PointMap toNewZoom) noexcept override;

 private:
    [[nodiscard]] bool holdsContent() const noexcept override { return holdsPicture_; }
    void drawInto(MutablePixelView target, IntRect area) const noexcept;

    const StampSettings& settings_;
    PixelSurface picture_;
    bool holdsPicture_ = false;  // null pictures included
};

}  // namespace orvane
