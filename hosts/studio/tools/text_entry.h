#pragma once

#include <orvane-gtk.h>

namespace orvane::studio {

/// A field whose text is placed on the picture while it is typed, and a button that places it once more.
/// Enter leaves the field, so that the next Enter draws the text; Escape drops it.
[[nodiscard]] GtkWidget* newTextEntry(OrvaneVistrel* control);

}  // namespace orvane::studio
