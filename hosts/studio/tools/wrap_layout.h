#pragma once

#include <gtk/gtk.h>

namespace orvane::studio {

/// A layout that sets children side by side like words, in as many lines as the width asks for. Every child
/// has its natural width, less where a line is narrower, and stands in the middle of its line's height.
[[nodiscard]] GtkLayoutManager* newWrapLayout(int columnSpacing, int lineSpacing);

}  // namespace orvane::studio
