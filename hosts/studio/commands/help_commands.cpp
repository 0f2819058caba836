#include "studio/commands/help_commands.h"

#include "studio/commands/shortcuts_window.h"
#include "studio/window.h"

namespace orvane::studio {

void showShortcuts(StudioWindow& window) { showShortcutsWindow(window.window()); }

void showAbout(StudioWindow& window) {
    gtk_show_about_dialog(window.window(), "program-name", "Orvane Studio", "version", ORVANE_VERSION,
                          "comments", "A photo editor around the Orvane control.", "logo-icon-name",
                          "io.github.orvane.Studio", "license-type", GTK_LICENSE_MIT_X11, "copyright",
                          "The developers of Orvane", nullptr);
}

}  // namespace orvane::studio
