#include "studio/files/recent_files.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include <gtk/gtk.h>

#include "studio/files/picture_format.h"

namespace orvane::studio {
namespace {

constexpr std::size_t kEntries = 10;

bool isPicture(GtkRecentInfo* info) {
    const char* type = gtk_recent_info_get_mime_type(info);
    const auto types = openableTypes();
    return std::any_of(types.begin(), types.end(), [type](const char* t) { return g_strcmp0(t, type) == 0; });
}

void appendEntry(GMenu* menu, GtkRecentInfo* info) {
    // An underscore in a file's name is no mnemonic.
    GString* label = g_string_new(gtk_recent_info_get_display_name(info));
    g_string_replace(label, "_", "__", 0);
    GMenuItem* item = g_menu_item_new(label->str, nullptr);
    g_menu_item_set_action_and_target(item, "app.open-recent", "s", gtk_recent_info_get_uri(info));
    g_menu_append_item(menu, item);
    g_object_unref(item);
    g_string_free(label, TRUE);
}

void fill(GMenu* menu, GtkRecentManager* manager) {
    g_menu_remove_all(menu);
    GList* items = gtk_recent_manager_get_items(manager);
    std::vector<GtkRecentInfo*> pictures;
    for (GList* item = items; item != nullptr; item = item->next) {
        auto* info = static_cast<GtkRecentInfo*>(item->data);
        if (isPicture(info) && gtk_recent_info_is_local(info) && gtk_recent_info_exists(info))
            pictures.push_back(info);
    }
    std::sort(pictures.begin(), pictures.end(), [](GtkRecentInfo* a, GtkRecentInfo* b) {
        return g_date_time_compare(gtk_recent_info_get_modified(a), gtk_recent_info_get_modified(b)) > 0;
    });
    pictures.resize(std::min(pictures.size(), kEntries));
    for (GtkRecentInfo* info : pictures) appendEntry(menu, info);
    if (pictures.empty()) g_menu_append(menu, "None Yet", "app.none");
    g_list_free_full(items, GDestroyNotify(gtk_recent_info_unref));
}

}  // namespace

GMenuModel* newRecentMenu() {
    GtkRecentManager* manager = gtk_recent_manager_get_default();
    GMenu* menu = g_menu_new();
    const auto changed = +[](GtkRecentManager* which, gpointer target) { fill(G_MENU(target), which); };
    g_signal_connect_object(manager, "changed", G_CALLBACK(changed), menu, GConnectFlags(0));
    fill(menu, manager);
    return G_MENU_MODEL(menu);
}

void rememberRecent(const std::string& path) {
    if (char* uri = g_filename_to_uri(path.c_str(), nullptr, nullptr)) {
        gtk_recent_manager_add_item(gtk_recent_manager_get_default(), uri);
        g_free(uri);
    }
}

}  // namespace orvane::studio
