#include "studio/files/dropped_files.h"

#include <memory>
#include <string>

#include "studio/files/open_picture.h"
#include "studio/support/object_ref.h"
#include "studio/window.h"

namespace orvane::studio {
namespace {

gboolean onDrop(GtkDropTarget*, const GValue* dropped, double, double, gpointer window) {
    GSList* files = gdk_file_list_get_files(static_cast<GdkFileList*>(g_value_get_boxed(dropped)));
    for (GSList* each = files; each != nullptr; each = each->next) {
        const std::unique_ptr<char, FreeText> path(g_file_get_path(G_FILE(each->data)));
        openPath(*static_cast<StudioWindow*>(window), path != nullptr ? path.get() : "");
    }
    g_slist_free(files);
    return TRUE;
}

}  // namespace

// Before the widgets: the control tells of the first file only, and a text field would take the names.
void openDroppedFiles(StudioWindow& window) {
    GtkDropTarget* target = gtk_drop_target_new(GDK_TYPE_FILE_LIST, GDK_ACTION_COPY);
    gtk_event_controller_set_propagation_phase(GTK_EVENT_CONTROLLER(target), GTK_PHASE_CAPTURE);
    g_signal_connect(target, "drop", G_CALLBACK(onDrop), &window);
    gtk_widget_add_controller(GTK_WIDGET(window.window()), GTK_EVENT_CONTROLLER(target));
}

}  // namespace orvane::studio
