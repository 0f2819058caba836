#pragma once

#include <gtk/gtk.h>

namespace orvane::gtk {

class VistrelHost;

/// Has files that are dropped on the widget reported to the control: the path of the first.
void acceptDroppedFiles(GtkWidget* widget, VistrelHost& host) noexcept;

}  // namespace orvane::gtk
