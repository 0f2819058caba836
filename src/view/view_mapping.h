#pragma once

#include <orvane/geometry.h>

#include "document/image_document.h"

/// Zooming, panning, and the two mappings between window pixels and image pixels that tools and events go
/// through.
namespace orvane {

/// One step of factor 1.1, while the zoom is below 8.0 or above 0.1; otherwise nothing changes.
void zoomIn(ImageDocument& document) noexcept;
void zoomOut(ImageDocument& document) noexcept;
/// The requested factor when the factor in force lies in 0.1..8.0; otherwise the nearer of these bounds.
void setZoom(ImageDocument& document, double requested) noexcept;
/// Fits the image into the view with a margin of 4 pixels; nothing on an empty document.
void zoomToFit(ImageDocument& document) noexcept;

/// The image pixel under a window pixel at this zoom. Not clamped to the image.
[[nodiscard]] IntPoint windowToImage(const ImageDocument& document, double zoom, IntPoint window) noexcept;
/// The window pixel that shows an image pixel at this zoom. outerSize: the window with its border
/// (WindowServices::outerSize), whose parity counts at zoom 1. The mappings are inverses only up to rounding:
/// a window position for an image position always comes from here.
[[nodiscard]] IntPoint imageToWindow(const ImageDocument& document, double zoom, IntPoint image,
                                     IntSize outerSize) noexcept;

/// A drag of the view: an anchor is taken only when the image overflows the view, and each axis moves only
/// while the image still covers that axis entirely.
void beginPan(ImageDocument& document, IntPoint mouse) noexcept;
/// Follows the mouse; answers whether a drag is under way.
bool panTo(ImageDocument& document, IntPoint mouse) noexcept;
void endPan(ImageDocument& document) noexcept;

/// Shows an image point at the window's top-left corner on the axes that overflow.
void scrollTo(ImageDocument& document, IntPoint image) noexcept;

}  // namespace orvane
