#pragma once

#include <orvane-gtk.h>

namespace orvane::studio {

/// The control's font families; a family's place is its font-index.
[[nodiscard]] GtkStringList* newFontList(OrvaneVistrel* control);

}  // namespace orvane::studio
