#include "studio/tools/command_button.h"

namespace orvane::studio {

GtkWidget* newCommandButton(const CommandText& text, const char* action) {
    GtkWidget* button = gtk_button_new_with_label(text.label);
    gtk_widget_set_tooltip_text(button, text.tip);
    gtk_actionable_set_action_name(GTK_ACTIONABLE(button), action);
    return button;
}

}  // namespace orvane::studio
