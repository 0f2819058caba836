#include "studio/tools/usable_bar.h"

#include "studio/support/object_ref.h"

namespace orvane::studio {
namespace {

constexpr const char* kLeftField = "left-field";

/// The keyboard's place in the window; null without a window too.
GtkWidget* focusOf(GtkWidget* bar) {
    GtkRoot* window = gtk_widget_get_root(bar);
    return window != nullptr ? gtk_root_get_focus(window) : nullptr;
}

// A field that loses the keyboard by becoming insensitive is not told so and the toolkit complains: it has to
// be left before.
void takeKeyboard(GtkWidget* bar) {
    GtkWidget* field = focusOf(bar);
    if (field == nullptr || !gtk_widget_is_ancestor(field, bar)) return;
    g_object_set_data_full(G_OBJECT(bar), kLeftField, g_object_ref(field), g_object_unref);
    gtk_root_set_focus(gtk_widget_get_root(bar), nullptr);
}

void giveKeyboardBack(GtkWidget* bar) {
    const ObjectRef<GtkWidget> field(static_cast<GtkWidget*>(g_object_steal_data(G_OBJECT(bar), kLeftField)));
    if (!field || focusOf(bar) != nullptr || !gtk_widget_get_mapped(field.get())) return;
    if (GTK_IS_TEXT(field.get())) {
        gtk_text_grab_focus_without_selecting(GTK_TEXT(field.get()));
    } else {
        gtk_widget_grab_focus(field.get());
    }
}

}  // namespace

void setBarUsable(GtkWidget* bar, bool usable) {
    if (!usable) takeKeyboard(bar);
    gtk_widget_set_sensitive(bar, usable);
    if (usable) giveKeyboardBack(bar);
}

}  // namespace orvane::studio
