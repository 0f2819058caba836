#pragma once

#include <gtk/gtk.h>

namespace orvane::studio {

/// Lists the keys of all commands and tools, as their tables have them.
void showShortcutsWindow(GtkWindow* parent);

}  // namespace orvane::studio
