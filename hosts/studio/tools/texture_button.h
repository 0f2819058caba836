#pragma once

#include <orvane-gtk.h>

namespace orvane::studio {

/// A button with the name of the texture's file, which lets another one be chosen.
[[nodiscard]] GtkWidget* newTextureButton(OrvaneVistrel* control);

}  // namespace orvane::studio
