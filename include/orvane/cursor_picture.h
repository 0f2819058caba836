#pragma once

#include <orvane/export.h>
#include <orvane/geometry.h>
#include <orvane/pixels.h>
#include <orvane/window_services.h>

namespace orvane {

/// A cursor that no system has, as a picture with transparency.
struct CursorPicture {
    PixelView pixels;
    IntPoint hotSpot;  ///< the pixel that points
};

/// The picture of `CursorId::Handle`, `Brush`, `Pencil` or `Spray`, 32 x 32 pixels, drawn at the first call
/// and valid as long as the program runs. Null for the cursors that every system brings, and without memory.
ORVANE_EXPORT CursorPicture cursorPicture(CursorId cursor) noexcept;

}  // namespace orvane
