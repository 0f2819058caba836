#include "studio/files/new_picture_dialog.h"

#include "studio/support/form_dialog.h"
#include "studio/window.h"

namespace orvane::studio {
namespace {

constexpr int kSmallest = 4, kLargest = 20000, kWidth = 1280, kHeight = 800;

/// Whether the picture fills what the window has for it. A window that just opens has no size yet; it will be
/// as large as the one that opens it.
bool fillsView(StudioWindow& window, int width, int height) {
    GtkWidget* view = window.picture().widget();
    const int scale = gtk_widget_get_scale_factor(view);
    return width >= gtk_widget_get_width(view) * scale || height >= gtk_widget_get_height(view) * scale;
}

void makePicture(StudioWindow& window, int width, int height, const GdkRGBA& colour) {
    const bool free = window.picture().isEmpty() && !window.picture().isBusy();
    StudioWindow& target = free ? window : StudioWindow::open(window.application());
    orvane_vistrel_set_bitmap_back_color(target.control(), &colour);
    orvane_vistrel_new_image(target.control(), width, height);
    if (fillsView(window, width, height)) orvane_vistrel_zoom_to_fit(target.control());
    target.picture().setFile({});
    gtk_window_present(target.window());
}

}  // namespace

void showNewPictureDialog(StudioWindow& window) {
    FormDialog form(window.window(), "New Picture", "_Create");
    auto* width = GTK_SPIN_BUTTON(FormDialog::newNumber(kSmallest, kLargest, 1, kWidth));
    auto* height = GTK_SPIN_BUTTON(FormDialog::newNumber(kSmallest, kLargest, 1, kHeight));
    const GdkRGBA white{1, 1, 1, 1};
    GtkWidget* colour = gtk_color_button_new_with_rgba(&white);
    form.add("_Width", GTK_WIDGET(width));
    form.add("_Height", GTK_WIDGET(height));
    form.add("_Background", colour);
    form.show([&window, width, height, colour] {
        GdkRGBA chosen;
        gtk_color_chooser_get_rgba(GTK_COLOR_CHOOSER(colour), &chosen);
        makePicture(window, gtk_spin_button_get_value_as_int(width), gtk_spin_button_get_value_as_int(height),
                    chosen);
    });
}

}  // namespace orvane::studio
