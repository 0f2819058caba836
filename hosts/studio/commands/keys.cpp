#include "studio/commands/keys.h"

#include <string>
#include <vector>

#include "studio/commands/command_table.h"
#include "studio/tools/tool_table.h"

namespace orvane::studio {
namespace {

/// Whether a text field, or a button that has the focus, has its own use for the key.
bool isYielded(const Command& command, const char* accelerator) {
    guint key = 0;
    GdkModifierType modifiers{};
    gtk_accelerator_parse(accelerator, &key, &modifiers);
    const bool function = key >= GDK_KEY_F1 && key <= GDK_KEY_F12;
    const bool plain = !function && (modifiers & (GDK_CONTROL_MASK | GDK_ALT_MASK)) == 0;
    return plain || command.menu == Menu::Edit;  // a text is copied, pasted and undone by the same keys
}

void addShortcut(GtkShortcutController* controller, const char* accelerator, const char* action,
                 GVariant* argument = nullptr) {
    GtkShortcut* shortcut =
        gtk_shortcut_new(gtk_shortcut_trigger_parse_string(accelerator), gtk_named_action_new(action));
    if (argument != nullptr) gtk_shortcut_set_arguments(shortcut, argument);
    gtk_shortcut_controller_add_shortcut(controller, shortcut);
}

}  // namespace

void setAccelerators(GtkApplication* application) {
    for (const Command& command : commands()) {
        char** keys = keysOf(command);
        std::vector<const char*> everywhere;
        for (char** key = keys; *key != nullptr; ++key) {
            if (!isYielded(command, *key)) everywhere.push_back(*key);
        }
        everywhere.push_back(nullptr);
        const std::string action = std::string("win.") + command.name;
        gtk_application_set_accels_for_action(application, action.c_str(), everywhere.data());
        g_strfreev(keys);
    }
}

void addYieldedKeys(GtkWidget* window) {
    auto* controller = GTK_SHORTCUT_CONTROLLER(gtk_shortcut_controller_new());
    gtk_event_controller_set_propagation_phase(GTK_EVENT_CONTROLLER(controller), GTK_PHASE_BUBBLE);
    for (const Command& command : commands()) {
        char** keys = keysOf(command);
        for (char** key = keys; *key != nullptr; ++key) {
            if (isYielded(command, *key))
                addShortcut(controller, *key, (std::string("win.") + command.name).c_str());
        }
        g_strfreev(keys);
    }
    for (const Tool& tool : tools()) {
        const char key[] = {char(g_ascii_tolower(tool.key)), '\0'};
        addShortcut(controller, key, "win.tool", g_variant_new_int32(tool.mode));
    }
    gtk_widget_add_controller(window, GTK_EVENT_CONTROLLER(controller));
}

}  // namespace orvane::studio
