#include "gtk/cursors.h"

#include <orvane/cursor_picture.h>

namespace orvane::gtk {
namespace {

/// The name that themes know a cursor by, which is also what stands in for a picture that cannot be made.
const char* themeName(CursorId cursor) noexcept {
    switch (cursor) {
        case CursorId::SizeNorthSouth:
            return "ns-resize";
        case CursorId::SizeWestEast:
            return "ew-resize";
        case CursorId::SizeNorthwestSoutheast:
            return "nwse-resize";
        case CursorId::SizeNortheastSouthwest:
            return "nesw-resize";
        case CursorId::Move:
            return "move";
        case CursorId::Handle:
            return "pointer";
        case CursorId::Brush:
        case CursorId::Pencil:
        case CursorId::Spray:
            return "crosshair";
        case CursorId::Arrow:
            break;
    }
    return "default";
}

GdkCursor* cursorFromPicture(const CursorPicture& picture, GdkCursor* standIn) noexcept {
    const PixelView pixels = picture.pixels;
    const gsize rowBytes = gsize(pixels.stridePixels) * sizeof(Argb);
    GBytes* bytes = g_bytes_new_static(pixels.pixels, rowBytes * gsize(pixels.height));
    GdkTexture* texture =
        gdk_memory_texture_new(pixels.width, pixels.height, GDK_MEMORY_B8G8R8A8, bytes, rowBytes);
    g_bytes_unref(bytes);
    GdkCursor* cursor = gdk_cursor_new_from_texture(texture, picture.hotSpot.x, picture.hotSpot.y, standIn);
    g_object_unref(texture);
    return cursor;
}

}  // namespace

void showCursor(GtkWidget* widget, CursorId cursor) noexcept {
    GdkCursor* named = gdk_cursor_new_from_name(themeName(cursor), nullptr);
    const CursorPicture picture = cursorPicture(cursor);
    GdkCursor* shown = picture.pixels ? cursorFromPicture(picture, named) : nullptr;
    gtk_widget_set_cursor(widget, shown != nullptr ? shown : named);
    g_clear_object(&shown);
    g_clear_object(&named);
}

}  // namespace orvane::gtk
