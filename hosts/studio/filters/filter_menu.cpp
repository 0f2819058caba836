#include "studio/filters/filter_menu.h"

#include <string>

#include "studio/filters/filter_table.h"
#include "studio/support/object_ref.h"

namespace orvane::studio {
namespace {

void appendFilter(GMenu* menu, const Filter& filter) {
    const std::string label = std::string(filter.label) + (filter.parameters.empty() ? "" : "…");
    ObjectRef<GMenuItem> item(g_menu_item_new(label.c_str(), nullptr));
    g_menu_item_set_action_and_target(item.get(), "win.filter", "s", filter.member);
    g_menu_append_item(menu, item.get());
}

}  // namespace

GMenuModel* newFilterMenu() {
    GMenu* menu = g_menu_new();
    ObjectRef<GMenu> group;
    const Filter* previous = nullptr;
    for (const Filter& filter : filters()) {
        if (previous == nullptr || filter.group != previous->group) {
            group.reset(g_menu_new());
            g_menu_append_submenu(menu, groupLabel(filter.group), G_MENU_MODEL(group.get()));
        }
        appendFilter(group.get(), filter);
        previous = &filter;
    }
    return G_MENU_MODEL(menu);
}

}  // namespace orvane::studio
