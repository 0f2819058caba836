#include "studio/commands/view_commands.h"

#include "studio/window.h"

namespace orvane::studio {
namespace {

void toggle(GtkWidget* widget) { gtk_widget_set_visible(widget, !gtk_widget_get_visible(widget)); }

}  // namespace

void zoomIn(StudioWindow& window) { orvane_vistrel_zoom_in(window.control()); }
void zoomOut(StudioWindow& window) { orvane_vistrel_zoom_out(window.control()); }
// From a zoom beyond the control's bounds, which a fitted picture may have, the first call goes to the bound
// only.
void actualSize(StudioWindow& window) {
    OrvaneVistrel* control = window.control();
    orvane_vistrel_actial_size(control);
    if (orvane_vistrel_get_zoom(control) != 1.0) orvane_vistrel_actial_size(control);
}
void fitWindow(StudioWindow& window) { orvane_vistrel_zoom_to_fit(window.control()); }

void toggleOverview(StudioWindow& window) {
    orvane_vistrel_set_scroll_window_visible(window.control(), !isOverviewOn(window));
}
void toggleHistogram(StudioWindow& window) { toggle(window.histogram()); }
// A field that is hidden would hand the keyboard to the window's first button.
void toggleOptions(StudioWindow& window) {
    gtk_widget_grab_focus(window.picture().widget());
    toggle(window.toolOptions());
}
void toggleFullscreen(StudioWindow& window) {
    if (isFullscreen(window)) {
        gtk_window_unfullscreen(window.window());
    } else {
        gtk_window_fullscreen(window.window());
    }
}

bool isOverviewOn(const StudioWindow& window) {
    return orvane_vistrel_get_scroll_window_visible(window.control()) != FALSE;
}
bool isHistogramOn(const StudioWindow& window) { return gtk_widget_get_visible(window.histogram()) != FALSE; }
bool isOptionsOn(const StudioWindow& window) { return gtk_widget_get_visible(window.toolOptions()) != FALSE; }
bool isFullscreen(const StudioWindow& window) { return gtk_window_is_fullscreen(window.window()) != FALSE; }

}  // namespace orvane::studio
