#include "studio/files/picture_chooser_dialog.h"

#include <memory>
#include <vector>

#include "studio/files/picture_format.h"
#include "studio/support/answers.h"
#include "studio/window.h"

namespace orvane::studio {
namespace {

void addFilters(GtkFileChooser* chooser) {
    GtkFileFilter* pictures = gtk_file_filter_new();
    gtk_file_filter_set_name(pictures, "Pictures");
    for (const char* type : openableTypes()) gtk_file_filter_add_mime_type(pictures, type);
    gtk_file_chooser_add_filter(chooser, pictures);
    g_object_unref(pictures);
    GtkFileFilter* all = gtk_file_filter_new();
    gtk_file_filter_set_name(all, "All files");
    gtk_file_filter_add_pattern(all, "*");
    gtk_file_chooser_add_filter(chooser, all);
    g_object_unref(all);
}

std::vector<std::string> chosenPaths(GtkFileChooser* chooser) {
    std::vector<std::string> paths;
    GListModel* files = gtk_file_chooser_get_files(chooser);
    for (guint i = 0; i < g_list_model_get_n_items(files); ++i) {
        auto* file = G_FILE(g_list_model_get_item(files, i));
        const std::unique_ptr<char, FreeText> path(g_file_get_path(file));
        if (path != nullptr) paths.emplace_back(path.get());
        g_object_unref(file);
    }
    g_object_unref(files);
    return paths;
}

}  // namespace

void choosePictures(StudioWindow& window, const char* title, bool several,
                    const std::function<void(const std::string& path)>& chosen) {
    GtkWidget* dialog =
        gtk_file_chooser_dialog_new(title, window.window(), GTK_FILE_CHOOSER_ACTION_OPEN, "_Cancel",
                                    GTK_RESPONSE_CANCEL, "_Open", GTK_RESPONSE_ACCEPT, nullptr);
    gtk_window_set_modal(GTK_WINDOW(dialog), TRUE);
    gtk_window_set_destroy_with_parent(GTK_WINDOW(dialog), TRUE);
    gtk_dialog_set_default_response(GTK_DIALOG(dialog), GTK_RESPONSE_ACCEPT);
    nameByLabels(GTK_DIALOG(dialog), {GTK_RESPONSE_CANCEL, GTK_RESPONSE_ACCEPT});
    auto* chooser = GTK_FILE_CHOOSER(dialog);
    gtk_file_chooser_set_select_multiple(chooser, several);
    addFilters(chooser);
    if (!window.picture().path().empty()) {
        const std::unique_ptr<char, FreeText> folder(g_path_get_dirname(window.picture().path().c_str()));
        GFile* file = g_file_new_for_path(folder.get());
        gtk_file_chooser_set_current_folder(chooser, file, nullptr);
        g_object_unref(file);
    }
    // The answer is read before the dialog goes.
    const Answered taken = [=](int response) {
        const auto paths =
            response == GTK_RESPONSE_ACCEPT ? chosenPaths(chooser) : std::vector<std::string>();
        gtk_window_destroy(GTK_WINDOW(dialog));
        for (const std::string& path : paths) chosen(path);
    };
    onResponse(GTK_DIALOG(dialog), window.whileOpen(taken));
    gtk_window_present(GTK_WINDOW(dialog));
}

}  // namespace orvane::studio
