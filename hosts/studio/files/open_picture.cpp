#include "studio/files/open_picture.h"

#include <unistd.h>

#include <utility>

#include <glib/gstdio.h>

#include "studio/files/recent_files.h"
#include "studio/support/message.h"
#include "studio/window.h"

namespace orvane::studio {
namespace {

using Failed = std::function<void()>;  ///< called when people have read why

void onLoaded(StudioWindow& window, const std::string& path, bool opened, const Failed& failed) {
    if (opened) {
        window.picture().setFile(path);
        rememberRecent(path);
        return window.update();
    }
    tellNotOpened(window, path, failed);
}

void load(StudioWindow& window, const std::string& path, const Failed& failed) {
    if (!g_utf8_validate(path.c_str(), -1, nullptr)) return onLoaded(window, path, false, failed);
    const std::function<void(GVariant*)> done = [&window, path, failed](GVariant* result) {
        onLoaded(window, path, result != nullptr && g_variant_get_boolean(result), failed);
    };
    window.picture().runSlow("load-image", g_variant_new("(s)", path.c_str()), "Opening",
                             window.whileOpen(done));
}

}  // namespace

void openPath(StudioWindow& window, const std::string& path) {
    const bool free = window.picture().isEmpty() && !window.picture().isBusy();
    StudioWindow& target = free ? window : StudioWindow::open(window.application());
    const Failed closeIfMadeForIt = [&target, free] {
        const StudioPicture& picture = target.picture();
        // By then another file may have been opened in it.
        if (!free && picture.isEmpty() && !picture.isRunning()) gtk_window_close(target.window());
    };
    load(target, path, target.whileOpen(closeIfMadeForIt));
    gtk_window_present(target.window());
}

void tellNotOpened(StudioWindow& window, const std::string& path, std::function<void()> closed) {
    const std::unique_ptr<char, FreeText> name(g_filename_display_basename(path.c_str()));
    showMessage(window.window(), std::string("“") + name.get() + "” was not opened", whyNotOpened(path),
                std::move(closed));
}

std::string whyNotOpened(const std::string& path) {
    if (path.empty()) return "It is on no disk of this computer.";
    if (!g_utf8_validate(path.c_str(), -1, nullptr)) return "Its name is not text in UTF-8. Rename it first.";
    if (!g_file_test(path.c_str(), G_FILE_TEST_EXISTS)) return "There is no such file.";
    if (g_file_test(path.c_str(), G_FILE_TEST_IS_DIR)) return "It is a folder.";
    if (g_access(path.c_str(), R_OK) != 0) return "You may not read this file.";
    return "It is no picture of a known format (BMP, JPEG, PNG, GIF, TIFF or WebP), it is damaged, or it is "
           "too large or smaller than 2 × 2 pixels.";
}

}  // namespace orvane::studio
