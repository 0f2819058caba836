#include "studio/tools/texture_button.h"

#include <memory>

#include "studio/files/picture_format.h"
#include "studio/support/object_ref.h"
#include "studio/tools/property_fields.h"

namespace orvane::studio {
namespace {

constexpr int kNameWidthInCharacters = 8;

void takeChosen(GtkNativeDialog* dialog, int response, gpointer control) {
    GFile* file =
        response == GTK_RESPONSE_ACCEPT ? gtk_file_chooser_get_file(GTK_FILE_CHOOSER(dialog)) : nullptr;
    if (file != nullptr) {
        const std::unique_ptr<char, FreeText> path(g_file_get_path(file));
        if (path != nullptr)
            orvane_vistrel_set_texture_file_name(static_cast<OrvaneVistrel*>(control), path.get());
        g_object_unref(file);
    }
    g_object_unref(dialog);
}

void choose(GtkWidget* button, gpointer control) {
    auto* window = GTK_WINDOW(gtk_widget_get_root(button));
    GtkFileChooserNative* dialog = gtk_file_chooser_native_new(
        "Choose a Texture", window, GTK_FILE_CHOOSER_ACTION_OPEN, "_Choose", "_Cancel");
    GtkFileFilter* pictures = gtk_file_filter_new();
    gtk_file_filter_set_name(pictures, "Pictures");
    for (const char* type : openableTypes()) gtk_file_filter_add_mime_type(pictures, type);
    gtk_file_chooser_add_filter(GTK_FILE_CHOOSER(dialog), pictures);
    g_object_unref(pictures);
    gtk_native_dialog_set_modal(GTK_NATIVE_DIALOG(dialog), TRUE);
    g_signal_connect_object(dialog, "response", G_CALLBACK(takeChosen), control, GConnectFlags(0));
    gtk_native_dialog_show(GTK_NATIVE_DIALOG(dialog));
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
    g_signal_connect_object(button, "clicked", G_CALLBACK(choose), control, GConnectFlags(0));
    return button;
}

}  // namespace orvane::studio
