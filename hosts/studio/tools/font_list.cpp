#include "studio/tools/font_list.h"

namespace orvane::studio {

// The control names the family that is chosen and no other, so each is chosen for a moment.
GtkStringList* newFontList(OrvaneVistrel* control) {
    GtkStringList* families = gtk_string_list_new(nullptr);
    const int chosen = orvane_vistrel_get_font_index(control);
    const int count = orvane_vistrel_get_font_count(control);
    g_object_freeze_notify(G_OBJECT(control));
    orvane_vistrel_begin_update(control);
    for (int i = 0; i < count; ++i) {
        orvane_vistrel_set_font_index(control, i);
        char* name = orvane_vistrel_get_font_name(control);
        gtk_string_list_append(families, name != nullptr ? name : "");
        g_free(name);
    }
    orvane_vistrel_set_font_index(control, chosen);
    orvane_vistrel_end_update(control);
    g_object_thaw_notify(G_OBJECT(control));
    return families;
}

}  // namespace orvane::studio
