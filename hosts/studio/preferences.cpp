#include "studio/preferences.h"

#include <algorithm>
#include <memory>

#include "studio/window.h"

namespace orvane::studio {
namespace {

constexpr const char* kWindow = "window";
constexpr int kSmallestSide = 320, kLargestSide = 10000;

std::string settingsPath() {
    const std::unique_ptr<char, FreeText> path(
        g_build_filename(g_get_user_config_dir(), "orvane-studio", "settings.ini", nullptr));
    return path.get();
}

int side(GKeyFile* file, const char* key, int otherwise) {
    const int value = g_key_file_get_integer(file, kWindow, key, nullptr);
    return value == 0 ? otherwise : std::clamp(value, kSmallestSide, kLargestSide);
}

bool flag(GKeyFile* file, const char* key, bool otherwise) {
    GError* error = nullptr;
    const bool value = g_key_file_get_boolean(file, kWindow, key, &error) != FALSE;
    if (error == nullptr) return value;
    g_error_free(error);
    return otherwise;
}

// Grey that neither competes with the picture nor dazzles beside it.
constexpr GdkRGBA kAround{0.235F, 0.235F, 0.25F, 1}, kFrame{0.1F, 0.1F, 0.1F, 1};

}  // namespace

Preferences& preferences() {
    static Preferences shared;
    return shared;
}

Preferences::Preferences() {
    GKeyFile* file = g_key_file_new();
    if (g_key_file_load_from_file(file, settingsPath().c_str(), G_KEY_FILE_NONE, nullptr)) {
        if (char* chosen = g_key_file_get_string(file, "appearance", "scheme", nullptr)) {
            if (std::string_view(chosen) == "light" || std::string_view(chosen) == "dark")
                appearance_ = chosen;
            g_free(chosen);
        }
        width_ = side(file, "width", width_);
        height_ = side(file, "height", height_);
        maximized_ = flag(file, "maximized", maximized_);
        histogram_ = flag(file, "histogram", histogram_);
        options_ = flag(file, "options", options_);
    }
    g_key_file_free(file);
    showAppearance();
}

void Preferences::setAppearance(const std::string& appearance) {
    appearance_ = appearance;
    showAppearance();
    save();
}

void Preferences::showAppearance() const {
    GtkSettings* settings = gtk_settings_get_default();
    if (settings == nullptr) return;
    if (appearance_ == "system") {
        gtk_settings_reset_property(settings, "gtk-application-prefer-dark-theme");
    } else {
        g_object_set(settings, "gtk-application-prefer-dark-theme", appearance_ == "dark", nullptr);
    }
}

void Preferences::apply(StudioWindow& window) const {
    gtk_window_set_default_size(window.window(), width_, height_);
    if (maximized_) gtk_window_maximize(window.window());
    gtk_widget_set_visible(window.histogram(), histogram_);
    gtk_widget_set_visible(window.toolOptions(), options_);
    orvane_vistrel_set_back_color1(window.control(), &kAround);
    orvane_vistrel_set_frame_color(window.control(), &kFrame);
}

void Preferences::remember(const StudioWindow& window) {
    gtk_window_get_default_size(window.window(), &width_, &height_);
    maximized_ = gtk_window_is_maximized(window.window()) != FALSE;
    histogram_ = gtk_widget_get_visible(window.histogram()) != FALSE;
    options_ = gtk_widget_get_visible(window.toolOptions()) != FALSE;
    save();
}

void Preferences::save() const {
    GKeyFile* file = g_key_file_new();
    g_key_file_set_string(file, "appearance", "scheme", appearance_.c_str());
    g_key_file_set_integer(file, kWindow, "width", width_);
    g_key_file_set_integer(file, kWindow, "height", height_);
    g_key_file_set_boolean(file, kWindow, "maximized", maximized_);
    g_key_file_set_boolean(file, kWindow, "histogram", histogram_);
    g_key_file_set_boolean(file, kWindow, "options", options_);
    const std::string path = settingsPath();
    const std::unique_ptr<char, FreeText> folder(g_path_get_dirname(path.c_str()));
    g_mkdir_with_parents(folder.get(), 0700);
    g_key_file_save_to_file(file, path.c_str(), nullptr);
    g_key_file_free(file);
}

}  // namespace orvane::studio
