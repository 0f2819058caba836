#include "studio/commands/scale_dialog.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "studio/support/form_dialog.h"
#include "studio/window.h"

namespace orvane::studio {
namespace {

constexpr int kSmallest = 4, kLargest = 20000;

/// The fields, each of which follows the others.
struct ScaleFields {
    GtkSpinButton *width, *height, *percent;
    GtkCheckButton* proportional;
    int oldWidth, oldHeight;
    bool following = false;

    void follow(GtkSpinButton* changed) {
        if (following) return;
        following = true;
        if (changed == percent) {
            scaleBoth(gtk_spin_button_get_value(percent) / 100.0);
        } else if (gtk_check_button_get_active(proportional)) {
            const double factor =
                gtk_spin_button_get_value(changed) / (changed == width ? oldWidth : oldHeight);
            scaleBoth(std::min(factor, largestFactor(oldWidth, oldHeight)));
            gtk_spin_button_set_value(percent, factor * 100.0);
        }
        following = false;
    }

    // The longer side is the first to meet its bound; a picture keeps its proportions only if the other waits
    // there.
    static double largestFactor(int width, int height) {
        return std::max(1.0, double(kLargest) / std::max(width, height));
    }

    void scaleBoth(double factor) const {
        gtk_spin_button_set_value(width, std::round(oldWidth * factor));
        gtk_spin_button_set_value(height, std::round(oldHeight * factor));
    }
};

// The control truncates the new size; half a pixel more gives the size that was asked for.
double factorFor(GtkSpinButton* field, int oldSize) {
    const int wanted = gtk_spin_button_get_value_as_int(field);
    return wanted == oldSize ? 1.0 : (wanted + 0.5) / oldSize;
}

}  // namespace

void showScaleDialog(StudioWindow& window) {
    const int width = orvane_vistrel_get_image_width(window.control());
    const int height = orvane_vistrel_get_image_height(window.control());
    const double largestPercent = std::min(1000.0, 100.0 * ScaleFields::largestFactor(width, height));
    FormDialog form(window.window(), "Scale Picture", "_Scale");
    auto* fields = new ScaleFields{
        GTK_SPIN_BUTTON(FormDialog::newNumber(kSmallest, kLargest, 1, width)),
        GTK_SPIN_BUTTON(FormDialog::newNumber(kSmallest, kLargest, 1, height)),
        GTK_SPIN_BUTTON(FormDialog::newNumber(1, largestPercent, 1, 100, 1)),
        GTK_CHECK_BUTTON(FormDialog::newCheck("Keep _proportions", true)),
        width,
        height,
    };
    form.add("_Width", GTK_WIDGET(fields->width));
    form.add("_Height", GTK_WIDGET(fields->height));
    form.add("P_ercent", GTK_WIDGET(fields->percent));
    form.add(GTK_WIDGET(fields->proportional));
    const auto changed =
        +[](GtkSpinButton* field, gpointer data) { static_cast<ScaleFields*>(data)->follow(field); };
    for (GtkSpinButton* field : {fields->width, fields->height, fields->percent}) {
        g_signal_connect(field, "value-changed", G_CALLBACK(changed), fields);
    }
    g_object_set_data_full(G_OBJECT(form.dialog()), "fields", fields,
                           [](gpointer data) { delete static_cast<ScaleFields*>(data); });
    form.show([&window, fields] {
        const double x = factorFor(fields->width, fields->oldWidth),
                     y = factorFor(fields->height, fields->oldHeight);
        window.picture().runSlow("scale-image", g_variant_new("(dd)", x, y), "Scaling");
    });
}

}  // namespace orvane::studio
