#include "studio/tools/texture_button.h"

#include "studio/files/picture_check.h"
#include "studio/files/picture_chooser_dialog.h"
#include "studio/tools/property_fields.h"
#include "studio/window.h"

namespace orvane::studio {
namespace {

constexpr int kNameWidthInCharacters = 8;

void takeTexture(StudioWindow& window, const std::string& path) {
    checkPicture(window, path,
                 [&window, path] { orvane_vistrel_set_texture_file_name(window.control(), path.c_str()); });
}

void choose(GtkWidget* button, gpointer) {
    StudioWindow* window = StudioWindow::of(GTK_WINDOW(gtk_widget_get_root(button)));
    choosePictures(*window, "Choose a Texture", false,
                   [window](const std::string& path) { takeTexture(*window, path); });
}

gboolean nameOfPath(GBinding*, const GValue* from, GValue* to, gpointer) {
    const char* path = g_value_get_string(from);
    const bool chosen = path != nullptr && g_path_is_absolute(path);
    g_value_take_string(to, chosen ? g_path_get_basename(path) : g_strdup("Choose…"));
    return TRUE;
}

}  // namespace

GtkWidget* newTextureButton(OrvaneVistrel* control) {
    GtkWidget* name = gtk_label_new("");
    gtk_label_set_ellipsize(GTK_LABEL(name), PANGO_ELLIPSIZE_MIDDLE);
    gtk_label_set_width_chars(GTK_LABEL(name), kNameWidthInCharacters);
    gtk_label_set_max_width_chars(GTK_LABEL(name), kNameWidthInCharacters);
    g_object_bind_property_full(control, "texture-file-name", name, "label", G_BINDING_SYNC_CREATE,
                                nameOfPath, nullptr, nullptr, nullptr);
    GtkWidget* row = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 6);
    gtk_box_append(GTK_BOX(row), gtk_image_new_from_icon_name("image-x-generic-symbolic"));
    gtk_box_append(GTK_BOX(row), name);

    GtkWidget* button = gtk_button_new();
    gtk_button_set_child(GTK_BUTTON(button), row);
    nameField(button, {"", "Texture", "Choose the picture that the fill is made of"});
    g_signal_connect(button, "clicked", G_CALLBACK(choose), nullptr);
    return button;
}

}  // namespace orvane::studio
