#pragma once

#include <gtk/gtk.h>

#include "studio/picture.h"

namespace orvane::studio {

/// Applies a filter: at once when there is nothing to ask, else through a dialog that shows the result as its
/// values change. Cancelled, it leaves the picture and its history as they were. A name that is no filter's
/// does nothing.
void applyFilter(StudioPicture& picture, GtkWindow* parent, const char* member);

}  // namespace orvane::studio
