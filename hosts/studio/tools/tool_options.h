#pragma once

#include <orvane-gtk.h>

namespace orvane::studio {

/// A bar with what the control's present tool can be set to, and with the commands that end what it has
/// begun. It takes as many lines as the window's width asks for.
[[nodiscard]] GtkWidget* newToolOptions(OrvaneVistrel* control);

}  // namespace orvane::studio
