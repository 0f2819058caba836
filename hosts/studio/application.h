#pragma once

#include <gtk/gtk.h>

namespace orvane::studio {

inline constexpr const char* kApplicationId = "io.github.orvane.Studio";

/// The program: opens a window for each file that it is given, or an empty one.
[[nodiscard]] GtkApplication* newApplication();

}  // namespace orvane::studio
