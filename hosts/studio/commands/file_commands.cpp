#include "studio/commands/file_commands.h"

#include "studio/files/new_picture_dialog.h"
#include "studio/files/open_picture.h"
#include "studio/files/picture_chooser_dialog.h"
#include "studio/files/save_picture.h"
#include "studio/support/message.h"
#include "studio/window.h"

namespace orvane::studio {

void newPicture(StudioWindow& window) { showNewPictureDialog(window); }

void openPictures(StudioWindow& window) {
    choosePictures(window, "Open Pictures", true,
                   [&window](const std::string& path) { openPath(window, path); });
}

void savePicture(StudioWindow& window) { save(window); }

void savePictureAs(StudioWindow& window) { saveAs(window); }

void closeWindow(StudioWindow& window) { gtk_window_close(window.window()); }

// Every window asks for itself; one that is kept keeps the program.
void quit(StudioWindow& window) {
    GList* windows = g_list_copy(gtk_application_get_windows(window.application()));
    for (GList* each = windows; each != nullptr; each = each->next) {
        if (StudioWindow::of(GTK_WINDOW(each->data)) != nullptr) gtk_window_close(GTK_WINDOW(each->data));
    }
    g_list_free(windows);
}

}  // namespace orvane::studio
