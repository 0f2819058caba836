#include "studio/application.h"

#include "studio/commands/keys.h"
#include "studio/files/open_picture.h"
#include "studio/preferences.h"
#include "studio/window.h"

namespace orvane::studio {
namespace {

void loadStyle() {
    GtkCssProvider* provider = gtk_css_provider_new();
    gtk_css_provider_load_from_resource(provider, "/io/github/orvane/Studio/style.css");
    gtk_style_context_add_provider_for_display(gdk_display_get_default(), GTK_STYLE_PROVIDER(provider),
                                               GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
    g_object_unref(provider);
}

/// The window that is used, or a new one.
StudioWindow& someWindow(GtkApplication* application) {
    for (GList* each = gtk_application_get_windows(application); each != nullptr; each = each->next) {
        if (StudioWindow* window = StudioWindow::of(GTK_WINDOW(each->data))) return *window;
    }
    return StudioWindow::open(application);
}

void openFile(GtkApplication* application, GFile* file) {
    const std::unique_ptr<char, FreeText> path(g_file_get_path(file));
    openPath(someWindow(application), path != nullptr ? path.get() : "");
}

void openRecent(GSimpleAction*, GVariant* uri, gpointer application) {
    GFile* file = g_file_new_for_uri(g_variant_get_string(uri, nullptr));
    openFile(GTK_APPLICATION(application), file);
    g_object_unref(file);
}

void changeAppearance(GSimpleAction* action, GVariant* scheme, gpointer) {
    preferences().setAppearance(g_variant_get_string(scheme, nullptr));
    g_simple_action_set_state(action, scheme);
}

void addActions(GtkApplication* application) {
    GSimpleAction* recent = g_simple_action_new("open-recent", G_VARIANT_TYPE_STRING);
    g_signal_connect(recent, "activate", G_CALLBACK(openRecent), application);
    GSimpleAction* appearance = g_simple_action_new_stateful(
        "appearance", G_VARIANT_TYPE_STRING, g_variant_new_string(preferences().appearance().c_str()));
    g_signal_connect(appearance, "change-state", G_CALLBACK(changeAppearance), application);
    for (GSimpleAction* action : {recent, appearance}) {
        g_action_map_add_action(G_ACTION_MAP(application), G_ACTION(action));
        g_object_unref(action);
    }
}

void onStartup(GtkApplication* application, gpointer) {
    loadStyle();
    addActions(application);
    setAccelerators(application);
}

void onActivate(GtkApplication* application, gpointer) {
    gtk_window_present(someWindow(application).window());
}

void onOpen(GtkApplication* application, GFile** files, int count, const char*, gpointer) {
    for (int i = 0; i < count; ++i) openFile(application, files[i]);
}

}  // namespace

GtkApplication* newApplication() {
    GtkApplication* application = gtk_application_new(
        kApplicationId, GApplicationFlags(G_APPLICATION_HANDLES_OPEN | G_APPLICATION_CAN_OVERRIDE_APP_ID));
    g_application_set_resource_base_path(G_APPLICATION(application), "/io/github/orvane/Studio");
    g_application_set_option_context_parameter_string(G_APPLICATION(application), "[PICTURE…]");
    g_application_set_option_context_summary(G_APPLICATION(application),
                                             "Opens pictures to look at, paint on and edit.");
    g_signal_connect(application, "startup", G_CALLBACK(onStartup), nullptr);
    g_signal_connect(application, "activate", G_CALLBACK(onActivate), nullptr);
    g_signal_connect(application, "open", G_CALLBACK(onOpen), nullptr);
    return application;
}

}  // namespace orvane::studio
