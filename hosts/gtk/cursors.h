#pragma once

#include <gtk/gtk.h>

#include <orvane/window_services.h>

namespace orvane::gtk {

/// Gives the widget the system's cursor of that meaning, or the control's own picture where no system has
/// one.
void showCursor(GtkWidget* widget, CursorId cursor) noexcept;

}  // namespace orvane::gtk
