#include "studio/tools/property_stack.h"

#include <string>

namespace orvane::studio {
namespace {

constexpr const char* kValues = "shown-with";
constexpr int kValueCount = 32;

unsigned valuesOf(GtkWidget* page) { return GPOINTER_TO_UINT(g_object_get_data(G_OBJECT(page), kValues)); }

// The first page is the empty one, for values that no other page asks for.
GtkWidget* pageOf(GtkWidget* stack, int value) {
    GtkWidget* empty = gtk_widget_get_first_child(stack);
    if (value < 0 || value >= kValueCount) return empty;
    for (GtkWidget* page = empty; page != nullptr; page = gtk_widget_get_next_sibling(page)) {
        if ((valuesOf(page) >> value & 1U) != 0) return page;
    }
    return empty;
}

void showPage(GObject* control, GParamSpec* property, gpointer stack) {
    int value = 0;
    g_object_get(control, property->name, &value, nullptr);
    GtkWidget* shown = pageOf(GTK_WIDGET(stack), value);
    gtk_stack_set_visible_child(GTK_STACK(stack), shown);
    // A stack hides its other pages from the eye only.
    for (GtkWidget* page = gtk_widget_get_first_child(GTK_WIDGET(stack)); page != nullptr;
         page = gtk_widget_get_next_sibling(page)) {
        gtk_accessible_update_state(GTK_ACCESSIBLE(page), GTK_ACCESSIBLE_STATE_HIDDEN, page != shown, -1);
    }
}

}  // namespace

GtkWidget* newPropertyStack(OrvaneVistrel* control, const char* property,
                            std::initializer_list<PropertyPage> pages) {
    GtkWidget* stack = gtk_stack_new();
    gtk_stack_add_child(GTK_STACK(stack), gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 0));
    for (const PropertyPage& page : pages) {
        g_object_set_data(G_OBJECT(page.widget), kValues, GUINT_TO_POINTER(page.values));
        gtk_widget_set_halign(page.widget, GTK_ALIGN_START);
        gtk_stack_add_child(GTK_STACK(stack), page.widget);
    }
    g_signal_connect_object(control, (std::string("notify::") + property).c_str(), G_CALLBACK(showPage),
                            stack, GConnectFlags(0));
    showPage(G_OBJECT(control), g_object_class_find_property(G_OBJECT_GET_CLASS(control), property), stack);
    return stack;
}

}  // namespace orvane::studio
