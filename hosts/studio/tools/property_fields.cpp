#include "studio/tools/property_fields.h"

#include <vector>

namespace orvane::studio {
namespace {

constexpr const char* kUnit = "unit";
constexpr guint kSearchedFrom = 12;
constexpr int kChoiceWidthInCharacters = 8;

void bind(OrvaneVistrel* control, const char* property, GtkWidget* field, const char* fieldProperty,
          GBindingTransformFunc toField = nullptr, GBindingTransformFunc toControl = nullptr) {
    const auto both = GBindingFlags(G_BINDING_SYNC_CREATE | G_BINDING_BIDIRECTIONAL);
    g_object_bind_property_full(control, property, field, fieldProperty, both, toField, toControl, nullptr,
                                nullptr);
}

const char* unitOf(GtkSpinButton* number) {
    return static_cast<const char*>(g_object_get_data(G_OBJECT(number), kUnit));
}

// The number with its unit. What is typed may leave the unit out.
gboolean showNumber(GtkSpinButton* number, gpointer) {
    char text[32];
    g_snprintf(text, sizeof text, "%d%s", gtk_spin_button_get_value_as_int(number), unitOf(number));
    if (g_strcmp0(text, gtk_editable_get_text(GTK_EDITABLE(number))) != 0) {
        gtk_editable_set_text(GTK_EDITABLE(number), text);
    }
    return TRUE;
}

int readNumber(GtkSpinButton* number, double* value, gpointer) {
    const char* text = gtk_editable_get_text(GTK_EDITABLE(number));
    char* end = nullptr;
    *value = g_strtod(text, &end);
    return end == text ? GTK_INPUT_ERROR : TRUE;
}

// Escape would drop what is placed on the picture, which people did not mean who typed a number.
gboolean showAgainOnEscape(GtkEventControllerKey* keys, guint key, guint, GdkModifierType, gpointer) {
    if (key != GDK_KEY_Escape) return FALSE;
    GtkWidget* number = gtk_event_controller_get_widget(GTK_EVENT_CONTROLLER(keys));
    showNumber(GTK_SPIN_BUTTON(number), nullptr);
    gtk_root_set_focus(gtk_widget_get_root(number), nullptr);
    return TRUE;
}

GtkWidget* newNumber(int lowest, int highest, const char* unit) {
    GtkWidget* number = gtk_spin_button_new_with_range(lowest, highest, 1);
    gtk_spin_button_set_numeric(GTK_SPIN_BUTTON(number), FALSE);  // the unit is no number
    g_object_set_data(G_OBJECT(number), kUnit, const_cast<char*>(unit));
    g_signal_connect(number, "output", G_CALLBACK(showNumber), nullptr);
    g_signal_connect(number, "input", G_CALLBACK(readNumber), nullptr);
    gtk_editable_set_width_chars(GTK_EDITABLE(number), 5);
    gtk_editable_set_max_width_chars(GTK_EDITABLE(number), 5);
    GtkEventController* keys = gtk_event_controller_key_new();
    g_signal_connect(keys, "key-pressed", G_CALLBACK(showAgainOnEscape), nullptr);
    gtk_widget_add_controller(number, keys);
    return number;
}

gboolean percentOfByte(GBinding*, const GValue* from, GValue* to, gpointer) {
    g_value_set_double(to, double((g_value_get_uint(from) * 100 + 127) / 255));
    return TRUE;
}

gboolean byteOfPercent(GBinding*, const GValue* from, GValue* to, gpointer) {
    g_value_set_uint(to, guint(g_value_get_double(from) * 2.55 + 0.5));
    return TRUE;
}

// A value beyond the list, which another program may have put, chooses nothing.
gboolean placeOfValue(GBinding* binding, const GValue* from, GValue* to, gpointer) {
    GObject* list = g_binding_dup_target(binding);
    const guint count = g_list_model_get_n_items(gtk_drop_down_get_model(GTK_DROP_DOWN(list)));
    g_object_unref(list);
    const int value = g_value_get_int(from);
    g_value_set_uint(to, value >= 0 && guint(value) < count ? guint(value) : GTK_INVALID_LIST_POSITION);
    return TRUE;
}

gboolean valueOfPlace(GBinding*, const GValue* from, GValue* to, gpointer) {
    if (g_value_get_uint(from) == GTK_INVALID_LIST_POSITION) return FALSE;
    g_value_set_int(to, int(g_value_get_uint(from)));
    return TRUE;
}

void addLabel(GtkSignalListItemFactory*, GtkListItem* item, gpointer) {
    GtkWidget* label = gtk_label_new("");
    gtk_label_set_xalign(GTK_LABEL(label), 0);
    gtk_label_set_ellipsize(GTK_LABEL(label), PANGO_ELLIPSIZE_END);
    gtk_label_set_width_chars(GTK_LABEL(label), kChoiceWidthInCharacters);
    gtk_label_set_max_width_chars(GTK_LABEL(label), kChoiceWidthInCharacters);
    gtk_list_item_set_child(item, label);
}

void showChoice(GtkSignalListItemFactory*, GtkListItem* item, gpointer) {
    auto* choice = GTK_STRING_OBJECT(gtk_list_item_get_item(item));
    gtk_label_set_text(GTK_LABEL(gtk_list_item_get_child(item)), gtk_string_object_get_string(choice));
}

// The button has the same width whatever is chosen; the list shows every choice in full.
void fixWidth(GtkDropDown* list) {
    gtk_drop_down_set_list_factory(list, gtk_drop_down_get_factory(list));
    GtkListItemFactory* factory = gtk_signal_list_item_factory_new();
    g_signal_connect(factory, "setup", G_CALLBACK(addLabel), nullptr);
    g_signal_connect(factory, "bind", G_CALLBACK(showChoice), nullptr);
    gtk_drop_down_set_factory(list, factory);
    g_object_unref(factory);
}

void setName(GtkWidget* widget, const char* name) {
    gtk_accessible_update_property(GTK_ACCESSIBLE(widget), GTK_ACCESSIBLE_PROPERTY_LABEL, name, -1);
}

}  // namespace

void takeTypedNumber(GtkWindow* window) {
    GtkWidget* focus = gtk_window_get_focus(window);
    GtkWidget* number = focus != nullptr ? gtk_widget_get_ancestor(focus, GTK_TYPE_SPIN_BUTTON) : nullptr;
    if (number != nullptr) gtk_spin_button_update(GTK_SPIN_BUTTON(number));
}

void nameField(GtkWidget* field, const FieldText& text) {
    gtk_widget_set_tooltip_text(field, text.tip);
    setName(field, text.name);
    // The keyboard reaches the button inside these, and a screen reader announces what has the keyboard.
    const bool holdsButton = GTK_IS_COLOR_BUTTON(field) || GTK_IS_DROP_DOWN(field);
    if (holdsButton) setName(gtk_widget_get_first_child(field), text.name);
}

GtkWidget* withLabel(GtkWidget* field, const FieldText& text) {
    if (*text.label == '\0') return field;
    GtkWidget* box = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 6);
    gtk_box_append(GTK_BOX(box), gtk_label_new(text.label));
    gtk_box_append(GTK_BOX(box), field);
    return box;
}

GtkWidget* newNumberField(OrvaneVistrel* control, const FieldText& text, const char* property, int lowest,
                          int highest, const char* unit) {
    GtkWidget* number = newNumber(lowest, highest, unit);
    bind(control, property, number, "value");
    nameField(number, text);
    return withLabel(number, text);
}

GtkWidget* newOpacityField(OrvaneVistrel* control, const FieldText& text, const char* property) {
    GtkWidget* percent = newNumber(0, 100, " %");
    gtk_spin_button_set_increments(GTK_SPIN_BUTTON(percent), 5, 25);
    bind(control, property, percent, "value", percentOfByte, byteOfPercent);
    nameField(percent, text);
    return withLabel(percent, text);
}

GtkWidget* newColorField(OrvaneVistrel* control, const FieldText& text, const char* property) {
    GtkWidget* color = gtk_color_button_new();
    gtk_color_button_set_title(GTK_COLOR_BUTTON(color), text.name);
    bind(control, property, color, "rgba");
    nameField(color, text);
    return withLabel(color, text);
}

GtkWidget* newChoiceField(OrvaneVistrel* control, const FieldText& text, const char* property,
                          std::span<const char* const> choices) {
    std::vector<const char*> strings(choices.begin(), choices.end());
    strings.push_back(nullptr);
    return newListField(control, text, property, G_LIST_MODEL(gtk_string_list_new(strings.data())));
}

GtkWidget* newListField(OrvaneVistrel* control, const FieldText& text, const char* property,
                        GListModel* choices) {
    const bool isLong = g_list_model_get_n_items(choices) >= kSearchedFrom;
    GtkExpression* words = gtk_property_expression_new(GTK_TYPE_STRING_OBJECT, nullptr, "string");
    GtkWidget* list = gtk_drop_down_new(choices, words);
    gtk_drop_down_set_enable_search(GTK_DROP_DOWN(list), isLong);
    fixWidth(GTK_DROP_DOWN(list));
    bind(control, property, list, "selected", placeOfValue, valueOfPlace);
    nameField(list, text);
    return withLabel(list, text);
}

GtkWidget* newCheckField(OrvaneVistrel* control, const FieldText& text, const char* property) {
    GtkWidget* check = gtk_check_button_new_with_label(text.label);
    bind(control, property, check, "active");
    nameField(check, text);
    return check;
}

GtkWidget* newToggleField(OrvaneVistrel* control, const FieldText& text, const char* property,
                          const char* iconName) {
    GtkWidget* toggle = gtk_toggle_button_new();
    gtk_button_set_icon_name(GTK_BUTTON(toggle), iconName);
    bind(control, property, toggle, "active");
    nameField(toggle, text);
    return toggle;
}

}  // namespace orvane::studio
