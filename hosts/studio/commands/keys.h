#pragma once

#include <gtk/gtk.h>

namespace orvane::studio {

/// Gives the commands their keys. Those that no text field knows work everywhere in a window.
void setAccelerators(GtkApplication* application);

/// The others work in this window where nothing else takes them: the tools' letters and Control with C not
/// while text is typed, and Control with the arrows not in a text.
void addWindowKeys(GtkWidget* window);

}  // namespace orvane::studio
