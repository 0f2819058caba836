#include "gtk/file_drop.h"

#include "gtk/values.h"
#include "gtk/vistrel_host.h"

namespace orvane::gtk {
namespace {

/// The path of the first file in the list as text; null when there is none, or for a file elsewhere.
char* firstPath(const GValue* dropped) noexcept {
    GSList* files = gdk_file_list_get_files(static_cast<GdkFileList*>(g_value_get_boxed(dropped)));
    char* path = files != nullptr ? g_file_get_path(G_FILE(files->data)) : nullptr;
    g_slist_free(files);
    if (path == nullptr) return nullptr;
    char* text = g_filename_to_utf8(path, -1, nullptr, nullptr, nullptr);
    g_free(path);
    return text;
}

gboolean onDrop(GtkDropTarget*, const GValue* dropped, double, double, gpointer host) {
    char* path = firstPath(dropped);
    if (path == nullptr) return FALSE;
    static_cast<VistrelHost*>(host)->dropFile(valueOf(path).string());
    g_free(path);
    return TRUE;
}

}  // namespace

void acceptDroppedFiles(GtkWidget* widget, VistrelHost& host) noexcept {
    GtkDropTarget* target = gtk_drop_target_new(GDK_TYPE_FILE_LIST, GDK_ACTION_COPY);
    g_signal_connect(target, "drop", G_CALLBACK(onDrop), &host);
    gtk_widget_add_controller(widget, GTK_EVENT_CONTROLLER(target));
}

}  // namespace orvane::gtk
