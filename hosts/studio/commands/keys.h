#pragma once

#include <gtk/gtk.h>

namespace orvane::studio {

/// Gives the commands their keys. Those that no text field knows work everywhere in a window.
void setAccelerators(GtkApplication* application);

/// The others, such as the tools' letters and Control with C, work in this window where nothing else takes
/// them: not while text is typed.
void addYieldedKeys(GtkWidget* window);

}  // namespace orvane::studio
