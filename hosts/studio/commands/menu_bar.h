#pragma once

#include <gtk/gtk.h>

namespace orvane::studio {

/// The menus: the commands, the filters, the appearance, the recent files.
///
/// picture: gets the keyboard when a menu closes.
[[nodiscard]] GtkWidget* newMenuBar(GtkWidget* picture);

}  // namespace orvane::studio
