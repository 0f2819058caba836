#pragma once

#include <gtk/gtk.h>

namespace orvane::bench {

/// What the toolkit alone costs: a widget that has a view's pixels ready and shows other ones after each
/// pointer event.
GtkWidget* newPlainPicture(int width, int height);

}  // namespace orvane::bench
