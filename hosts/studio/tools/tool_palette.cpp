#include "studio/tools/tool_palette.h"

#include <string>

#include "studio/tools/tool_table.h"
#include "studio/tools/usable_bar.h"

namespace orvane::studio {
namespace {

constexpr const char* kMode = "paint-mode";
constexpr int kColumns = 2, kGroupSpacing = 6;

int modeOf(GtkWidget* button) { return GPOINTER_TO_INT(g_object_get_data(G_OBJECT(button), kMode)); }

// Only the button that comes down chooses: its neighbour goes up at the same time.
void onToggled(GtkToggleButton* button, gpointer control) {
    auto* vistrel = static_cast<OrvaneVistrel*>(control);
    const int mode = modeOf(GTK_WIDGET(button));
    if (!gtk_toggle_button_get_active(button) || orvane_vistrel_get_paint_status(vistrel) == mode) return;
    orvane_vistrel_set_paint_status(vistrel, mode);
}

GtkWidget* newToolButton(const Tool& tool, OrvaneVistrel* control) {
    GtkWidget* button = gtk_toggle_button_new();
    gtk_button_set_icon_name(GTK_BUTTON(button), tool.iconName);
    gtk_widget_add_css_class(button, "flat");
    const std::string tip = std::string(tool.label) + " (" + tool.key + ")";
    gtk_widget_set_tooltip_text(button, tip.c_str());
    gtk_accessible_update_property(GTK_ACCESSIBLE(button), GTK_ACCESSIBLE_PROPERTY_LABEL, tool.label,
                                   GTK_ACCESSIBLE_PROPERTY_DESCRIPTION, tool.hint, -1);
    g_object_set_data(G_OBJECT(button), kMode, GINT_TO_POINTER(tool.mode));
    g_signal_connect_object(button, "toggled", G_CALLBACK(onToggled), control, GConnectFlags(0));
    return button;
}

/// The button of a mode; null without one.
GtkWidget* buttonOf(GtkWidget* palette, int mode) {
    for (GtkWidget* group = gtk_widget_get_first_child(palette); group != nullptr;
         group = gtk_widget_get_next_sibling(group)) {
        for (GtkWidget* button = gtk_widget_get_first_child(group); button != nullptr;
             button = gtk_widget_get_next_sibling(button)) {
            if (modeOf(button) == mode) return button;
        }
    }
    return nullptr;
}

void showMode(OrvaneVistrel* control, GParamSpec*, gpointer palette) {
    GtkWidget* button = buttonOf(GTK_WIDGET(palette), orvane_vistrel_get_paint_status(control));
    if (button != nullptr) gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(button), TRUE);
}

void updateSensitivity(OrvaneVistrel* control, GParamSpec*, gpointer palette) {
    const bool usable = !orvane_vistrel_get_is_empty(control) && !orvane_vistrel_get_busy(control);
    setBarUsable(GTK_WIDGET(palette), usable);
}

GtkWidget* newGroup() {
    GtkWidget* group = gtk_grid_new();
    gtk_grid_set_row_homogeneous(GTK_GRID(group), TRUE);
    gtk_grid_set_column_homogeneous(GTK_GRID(group), TRUE);
    gtk_grid_set_row_spacing(GTK_GRID(group), 2);
    gtk_grid_set_column_spacing(GTK_GRID(group), 2);
    return group;
}

void addTools(GtkBox* palette, OrvaneVistrel* control) {
    GtkWidget* group = nullptr;
    GtkWidget* firstButton = nullptr;
    int placed = 0;
    const Tool* previous = nullptr;
    for (const Tool& tool : tools()) {
        if (previous == nullptr || previous->group != tool.group) {
            group = newGroup();
            gtk_box_append(palette, group);
            placed = 0;
        }
        GtkWidget* button = newToolButton(tool, control);
        if (firstButton != nullptr) {
            gtk_toggle_button_set_group(GTK_TOGGLE_BUTTON(button), GTK_TOGGLE_BUTTON(firstButton));
        } else {
            firstButton = button;
        }
        gtk_grid_attach(GTK_GRID(group), button, placed % kColumns, placed / kColumns, 1, 1);
        ++placed;
        previous = &tool;
    }
}

}  // namespace

GtkWidget* newToolPalette(OrvaneVistrel* control) {
    GtkWidget* palette = gtk_box_new(GTK_ORIENTATION_VERTICAL, kGroupSpacing);
    gtk_widget_add_css_class(palette, "tool-palette");
    gtk_accessible_update_property(GTK_ACCESSIBLE(palette), GTK_ACCESSIBLE_PROPERTY_LABEL, "Tools", -1);
    addTools(GTK_BOX(palette), control);
    g_signal_connect_object(control, "notify::paint-status", G_CALLBACK(showMode), palette, GConnectFlags(0));
    for (const char* state : {"notify::is-empty", "notify::busy"}) {
        g_signal_connect_object(control, state, G_CALLBACK(updateSensitivity), palette, GConnectFlags(0));
    }
    showMode(control, nullptr, palette);
    updateSensitivity(control, nullptr, palette);
    return palette;
}

}  // namespace orvane::studio
