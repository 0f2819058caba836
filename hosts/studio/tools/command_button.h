#pragma once

#include <gtk/gtk.h>

namespace orvane::studio {

struct CommandText {
    const char* label;
    const char* tip;
};

/// A button that gives a command of the window, and can be pressed while the command can be given.
[[nodiscard]] GtkWidget* newCommandButton(const CommandText& text, const char* action);

}  // namespace orvane::studio
