#include "studio/application.h"
#include "studio/renderer.h"

int main(int argc, char** argv) {
    orvane::studio::chooseRenderer();
    g_set_application_name("Orvane Studio");
    gtk_window_set_default_icon_name(orvane::studio::kApplicationId);
    GtkApplication* application = orvane::studio::newApplication();
    const int status = g_application_run(G_APPLICATION(application), argc, argv);
    g_object_unref(application);
    return status;
}
