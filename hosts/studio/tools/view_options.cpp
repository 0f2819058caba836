#include "studio/tools/view_options.h"

#include <string>

#include "studio/tools/property_fields.h"

namespace orvane::studio {
namespace {

GtkWidget* newSurroundings(OrvaneVistrel* control) {
    return newColorField(control,
                         {"Around", "Colour around the picture", "Colour of the area around the picture"},
                         "back-color1");
}

GtkWidget* newFrame(OrvaneVistrel* control) {
    return newColorField(control, {"Frame", "Frame colour", "Colour of the frame around the picture"},
                         "frame-color");
}

GtkWidget* newOverview(OrvaneVistrel* control) {
    return newColorField(control, {"Overview", "Overview colour", "Colour of the overview panel"},
                         "scroll-window-color");
}

void showPoint(OrvaneVistrel*, int x, int y, gpointer label) {
    const std::string text = "Point: " + std::to_string(x) + ", " + std::to_string(y);
    gtk_label_set_text(GTK_LABEL(label), text.c_str());
}

GtkWidget* newTrackedPoint(OrvaneVistrel* control) {
    GtkWidget* label = gtk_label_new("Point: not yet dragged");
    gtk_widget_add_css_class(label, "numeric");
    gtk_label_set_selectable(GTK_LABEL(label), TRUE);
    gtk_widget_set_tooltip_text(label, "Where the cross is, in pixels from the picture's top left corner");
    for (const char* signal : {"track-point-mouse-down", "track-point-mouse-move", "track-point-mouse-up"}) {
        g_signal_connect_object(control, signal, G_CALLBACK(showPoint), label, GConnectFlags(0));
    }
    return label;
}

constexpr OptionField kFields[] = {
    {ToolOptions::View, newSurroundings},
    {ToolOptions::View, newFrame},
    {ToolOptions::View, newOverview},
    {ToolOptions::TrackPoint, newTrackedPoint},
};

}  // namespace

std::span<const OptionField> viewOptions() { return kFields; }

}  // namespace orvane::studio
