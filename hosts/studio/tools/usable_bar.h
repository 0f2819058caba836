#pragma once

#include <gtk/gtk.h>

namespace orvane::studio {

/// Takes a bar of fields out of use, and back into it. The field that had the keyboard has it again then, as
/// it was, unless something else has been given it meanwhile.
void setBarUsable(GtkWidget* bar, bool usable);

}  // namespace orvane::studio
