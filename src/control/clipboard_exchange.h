#pragma once

#include <orvane/geometry.h>

#include "document/pixel_surface.h"

namespace orvane {

class VistrelControl;

/// What `Copy`, `Cut` and `Paste` do once it is known which part of the window is selected. A selection is
/// two opposite corners in window pixels, in any order; the image pixels under both corners belong to it.
/// None of this redraws.

[[nodiscard]] bool isPictureOnClipboard(const VistrelControl& control) noexcept;

/// Puts the selected part of the image on the clipboard. Without image, without memory, or when nothing of
/// the image is selected, the clipboard keeps what it has.
void copySelection(const VistrelControl& control, IntPoint corner, IntPoint opposite) noexcept;

/// The same, and fills that part of the image with `BitmapBackColor`, as one history step. It is filled even
/// when the clipboard cannot be opened. False when nothing of the image is selected or memory ran out for the
/// copy: then nothing has changed.
bool cutSelection(VistrelControl& control, IntPoint corner, IntPoint opposite) noexcept;

/// The picture on the clipboard; null when there is none that can be decoded.
[[nodiscard]] PixelSurface pictureOnClipboard(const VistrelControl& control) noexcept;

}  // namespace orvane
