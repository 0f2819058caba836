#include "studio/commands/keys.h"

#include <string>
#include <vector>

#include "studio/commands/command_table.h"
#include "studio/tools/tool_table.h"

namespace orvane::studio {
namespace {

/// Where in a window a key gives its command.
enum class Reach {
    Everywhere,
    BesideTexts,  ///< everywhere but in a text, which is moved about in by the same key
    Yielded       ///< where what has the keyboard has no use for the key
};

bool isEditing(guint key) {
    for (const guint each : {GDK_KEY_Left, GDK_KEY_Right, GDK_KEY_Up, GDK_KEY_Down, GDK_KEY_Home, GDK_KEY_End,
                             GDK_KEY_BackSpace, GDK_KEY_Delete}) {
        if (key == each) return true;
    }
    return false;
}

Reach reachOf(const Command& command, const char* accelerator) {
    guint key = 0;
    GdkModifierType modifiers{};
    gtk_accelerator_parse(accelerator, &key, &modifiers);
    if (command.menu == Menu::Edit) return Reach::Yielded;  // a text is copied, pasted and undone by them
    if (key >= GDK_KEY_F1 && key <= GDK_KEY_F12) return Reach::Everywhere;
    if ((modifiers & (GDK_CONTROL_MASK | GDK_ALT_MASK)) == 0) return Reach::Yielded;
    return isEditing(key) ? Reach::BesideTexts : Reach::Everywhere;
}

// A label has the keyboard when its text can be selected.
bool isText(GtkWidget* focus) { return GTK_IS_TEXT(focus) || GTK_IS_LABEL(focus); }

gboolean activateBesideTexts(GtkWidget* window, GVariant* argument, gpointer action) {
    if (isText(gtk_root_get_focus(GTK_ROOT(window)))) return FALSE;
    return gtk_shortcut_action_activate(GTK_SHORTCUT_ACTION(action), GTK_SHORTCUT_ACTION_EXCLUSIVE, window,
                                        argument);
}

GtkShortcutAction* besideTexts(GtkShortcutAction* action) {
    return gtk_callback_action_new(activateBesideTexts, action, g_object_unref);
}

void add(GtkEventController* controller, const char* accelerator, GtkShortcutAction* action,
         GVariant* argument = nullptr) {
    GtkShortcut* shortcut = gtk_shortcut_new(gtk_shortcut_trigger_parse_string(accelerator), action);
    if (argument != nullptr) gtk_shortcut_set_arguments(shortcut, argument);
    gtk_shortcut_controller_add_shortcut(GTK_SHORTCUT_CONTROLLER(controller), shortcut);
}

}  // namespace

void setAccelerators(GtkApplication* application) {
    for (const Command& command : commands()) {
        char** keys = keysOf(command);
        std::vector<const char*> everywhere;
        for (char** key = keys; *key != nullptr; ++key) {
            if (reachOf(command, *key) == Reach::Everywhere) everywhere.push_back(*key);
        }
        everywhere.push_back(nullptr);
        const std::string action = std::string("win.") + command.name;
        gtk_application_set_accels_for_action(application, action.c_str(), everywhere.data());
        g_strfreev(keys);
    }
}

void addWindowKeys(GtkWidget* window) {
    // The palette would scroll with some of the keys that texts move by: those are heard before it.
    GtkEventController* first = gtk_shortcut_controller_new();
    gtk_event_controller_set_propagation_phase(first, GTK_PHASE_CAPTURE);
    GtkEventController* last = gtk_shortcut_controller_new();
    gtk_event_controller_set_propagation_phase(last, GTK_PHASE_BUBBLE);
    for (const Command& command : commands()) {
        const std::string name = std::string("win.") + command.name;
        char** keys = keysOf(command);
        for (char** key = keys; *key != nullptr; ++key) {
            const Reach reach = reachOf(command, *key);
            if (reach == Reach::BesideTexts)
                add(first, *key, besideTexts(gtk_named_action_new(name.c_str())));
            if (reach == Reach::Yielded) add(last, *key, gtk_named_action_new(name.c_str()));
        }
        g_strfreev(keys);
    }
    for (const Tool& tool : tools()) {
        const char key[] = {char(g_ascii_tolower(tool.key)), '\0'};
        add(last, key, gtk_named_action_new("win.tool"), g_variant_new_int32(tool.mode));
    }
    gtk_widget_add_controller(window, first);
    gtk_widget_add_controller(window, last);
}

}  // namespace orvane::studio
