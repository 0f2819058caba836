#include "studio/tools/text_entry.h"

#include "studio/tools/property_fields.h"

namespace orvane::studio {
namespace {

void place(GtkEditable* entry, gpointer control) {
    orvane_vistrel_type_text(static_cast<OrvaneVistrel*>(control), gtk_editable_get_text(entry));
}

void placeAgain(GtkEditable* entry, GtkButton*) {
    gpointer control = g_object_get_data(G_OBJECT(entry), "control");
    orvane_vistrel_reset_track(static_cast<OrvaneVistrel*>(control));
    place(entry, control);
}

void leave(GtkWidget* entry) {
    GtkRoot* window = gtk_widget_get_root(entry);
    if (window != nullptr) gtk_root_set_focus(window, nullptr);
}

gboolean dropOnEscape(GtkEventControllerKey* keys, guint key, guint, GdkModifierType, gpointer) {
    if (key != GDK_KEY_Escape) return FALSE;
    GtkWidget* entry = gtk_event_controller_get_widget(GTK_EVENT_CONTROLLER(keys));
    gtk_editable_set_text(GTK_EDITABLE(entry), "");
    leave(entry);
    return TRUE;
}

// The field shows up when the tool is chosen: a new text, typed at once. What stands on the picture stays
// there.
void begin(GtkWidget* entry, gpointer control) {
    g_signal_handlers_block_by_func(entry, reinterpret_cast<gpointer>(place), control);
    gtk_editable_set_text(GTK_EDITABLE(entry), "");
    g_signal_handlers_unblock_by_func(entry, reinterpret_cast<gpointer>(place), control);
    gtk_widget_grab_focus(entry);
}

}  // namespace

GtkWidget* newTextEntry(OrvaneVistrel* control) {
    const FieldText text{"", "Text", "The text to place on the picture"};
    GtkWidget* entry = gtk_entry_new();
    gtk_entry_set_placeholder_text(GTK_ENTRY(entry), "Type the text here");
    gtk_editable_set_width_chars(GTK_EDITABLE(entry), 22);
    nameField(entry, text);
    g_object_set_data(G_OBJECT(entry), "control", control);
    g_signal_connect_object(entry, "changed", G_CALLBACK(place), control, GConnectFlags(0));
    g_signal_connect_object(entry, "map", G_CALLBACK(begin), control, G_CONNECT_AFTER);
    g_signal_connect(entry, "activate", G_CALLBACK(leave), nullptr);

    GtkEventController* keys = gtk_event_controller_key_new();
    gtk_event_controller_set_propagation_phase(keys, GTK_PHASE_CAPTURE);
    g_signal_connect(keys, "key-pressed", G_CALLBACK(dropOnEscape), nullptr);
    gtk_widget_add_controller(entry, keys);

    GtkWidget* again = gtk_button_new_with_label("Place");
    gtk_widget_set_tooltip_text(again, "Place the text once more, at the top left");
    g_signal_connect_object(again, "clicked", G_CALLBACK(placeAgain), entry, G_CONNECT_SWAPPED);

    GtkWidget* row = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 0);
    gtk_widget_add_css_class(row, "linked");
    gtk_box_append(GTK_BOX(row), entry);
    gtk_box_append(GTK_BOX(row), again);
    return row;
}

}  // namespace orvane::studio
