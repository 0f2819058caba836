#pragma once

#include <orvane-gtk.h>

namespace orvane::studio {

/// How often each level occurs in the picture: luma as a grey area, red, green and blue as curves. Follows
/// the picture while it is visible.
[[nodiscard]] GtkWidget* newHistogramPanel(OrvaneVistrel* control);

}  // namespace orvane::studio
