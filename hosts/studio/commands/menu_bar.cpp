#include "studio/commands/menu_bar.h"

#include <string>

#include "studio/commands/command_table.h"
#include "studio/files/recent_files.h"
#include "studio/filters/filter_menu.h"
#include "studio/support/object_ref.h"

namespace orvane::studio {
namespace {

using MenuRef = ObjectRef<GMenu>;

// The keys that yield to text fields are none of the application's accelerators, which menus show by
// themselves.
void appendCommand(GMenu* section, const Command& command) {
    ObjectRef<GMenuItem> item(g_menu_item_new(command.label, (std::string("win.") + command.name).c_str()));
    char** keys = keysOf(command);
    if (*keys != nullptr) g_menu_item_set_attribute(item.get(), "accel", "s", *keys);
    g_strfreev(keys);
    g_menu_append_item(section, item.get());
}

/// Adds the commands of one menu, section by section; behind the given section comes `extra`, if there is
/// one.
void appendCommands(GMenu* menu, Menu which, int extraAfter = -1, const char* extraLabel = nullptr,
                    GMenuModel* extra = nullptr) {
    MenuRef section;
    int number = -1;
    for (const Command& command : commands()) {
        if (command.menu != which) continue;
        if (!section || command.section != number) {
            section.reset(g_menu_new());
            g_menu_append_section(menu, nullptr, G_MENU_MODEL(section.get()));
            number = command.section;
        }
        appendCommand(section.get(), command);
        // The last one of its section is followed by the extra menu.
        if (extra != nullptr && number == extraAfter && std::string_view(command.name) == "open") {
            g_menu_append_submenu(section.get(), extraLabel, extra);
        }
    }
}

MenuRef newAppearanceMenu() {
    MenuRef menu(g_menu_new());
    g_menu_append(menu.get(), "As the _System", "app.appearance('system')");
    g_menu_append(menu.get(), "_Light", "app.appearance('light')");
    g_menu_append(menu.get(), "_Dark", "app.appearance('dark')");
    return menu;
}

MenuRef newMenu(Menu which) {
    MenuRef menu(g_menu_new());
    if (which == Menu::File) {
        ObjectRef<GMenuModel> recent(newRecentMenu());
        appendCommands(menu.get(), which, 0, "Open _Recent", recent.get());
    } else {
        appendCommands(menu.get(), which);
    }
    if (which == Menu::View) {
        MenuRef appearance = newAppearanceMenu();
        g_menu_append_submenu(menu.get(), "Appea_rance", G_MENU_MODEL(appearance.get()));
    }
    return menu;
}

// A closed menu would leave the keyboard on its button, where Enter opens the menu again, drawing nothing.
void passKeyboardOn(GtkWidget* popover, GtkWidget* target) {
    const auto closed = +[](GtkWidget* next) { gtk_widget_grab_focus(next); };
    g_signal_connect_object(popover, "closed", G_CALLBACK(closed), target,
                            GConnectFlags(G_CONNECT_SWAPPED | G_CONNECT_AFTER));
}

// The keyboard reaches the button inside, which a screen reader would announce by its type.
void nameInside(GtkWidget* button, const char* title) {
    GString* name = g_string_new(title);
    g_string_replace(name, "_", "", 1);
    gtk_accessible_update_property(GTK_ACCESSIBLE(gtk_widget_get_first_child(button)),
                                   GTK_ACCESSIBLE_PROPERTY_LABEL, name->str, -1);
    g_string_free(name, TRUE);
}

void appendMenu(GtkWidget* bar, GtkWidget* picture, const char* title, GMenuModel* menu) {
    GtkWidget* button = gtk_menu_button_new();
    GtkWidget* label = gtk_label_new_with_mnemonic(title);
    gtk_label_set_mnemonic_widget(GTK_LABEL(label), button);
    gtk_menu_button_set_child(GTK_MENU_BUTTON(button), label);
    gtk_menu_button_set_has_frame(GTK_MENU_BUTTON(button), FALSE);
    GtkWidget* popover = gtk_popover_menu_new_from_model(menu);
    gtk_popover_set_has_arrow(GTK_POPOVER(popover), FALSE);
    gtk_widget_set_halign(popover, GTK_ALIGN_START);
    gtk_menu_button_set_popover(GTK_MENU_BUTTON(button), popover);
    passKeyboardOn(popover, picture);
    nameInside(button, title);
    gtk_widget_set_focus_on_click(button, FALSE);
    gtk_accessible_update_relation(GTK_ACCESSIBLE(button), GTK_ACCESSIBLE_RELATION_LABELLED_BY, label,
                                   nullptr, -1);
    // F10 opens the first.
    gtk_menu_button_set_primary(GTK_MENU_BUTTON(button), gtk_widget_get_first_child(bar) == nullptr);
    gtk_box_append(GTK_BOX(bar), button);
}

}  // namespace

// Not the toolkit's own menu bar, and submenus that slide into their menu's place: when a submenu with a
// place of its own closes, the toolkit (4.8) takes the pointer's place in it for one in the window, and opens
// what it finds there.
GtkWidget* newMenuBar(GtkWidget* picture) {
    GtkWidget* bar = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 0);
    gtk_widget_add_css_class(bar, "menu-bar");
    for (const Menu which : {Menu::File, Menu::Edit, Menu::View, Menu::Image}) {
        appendMenu(bar, picture, menuLabel(which), G_MENU_MODEL(newMenu(which).get()));
    }
    ObjectRef<GMenuModel> filters(newFilterMenu());
    appendMenu(bar, picture, "Filte_rs", filters.get());
    appendMenu(bar, picture, menuLabel(Menu::Help), G_MENU_MODEL(newMenu(Menu::Help).get()));
    return bar;
}

}  // namespace orvane::studio
