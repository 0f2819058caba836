#pragma once

#include <orvane-gtk.h>

namespace orvane::studio {

/// The tools as toggle buttons in two columns. The control's present tool is pressed; the buttons can be used
/// while there is a picture and nothing runs.
[[nodiscard]] GtkWidget* newToolPalette(OrvaneVistrel* control);

}  // namespace orvane::studio
