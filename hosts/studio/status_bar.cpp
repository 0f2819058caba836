#include "studio/status_bar.h"

#include <cmath>
#include <string>

#include "studio/tools/tool_table.h"

namespace orvane::studio {
namespace {

constexpr guint kProgressAfterMs = 500, kPulseEveryMs = 80;

void setText(GtkWidget* label, const std::string& text) {
    if (text != gtk_label_get_text(GTK_LABEL(label))) gtk_label_set_text(GTK_LABEL(label), text.c_str());
}

std::string sizeText(OrvaneVistrel* control) {
    return std::to_string(orvane_vistrel_get_image_width(control)) + " × " +
           std::to_string(orvane_vistrel_get_image_height(control));
}

std::string zoomText(double zoom) {
    char text[32];
    const double percent = zoom * 100.0;
    g_snprintf(text, sizeof text, percent < 10.0 ? "%.1f %%" : "%.0f %%", percent);
    return text;
}

std::string hintText(OrvaneVistrel* control) {
    if (orvane_vistrel_get_is_empty(control)) return "Open a picture, or drop one here";
    const Tool* tool = toolOfMode(orvane_vistrel_get_paint_status(control));
    return tool != nullptr ? std::string(tool->label) + ": " + tool->hint : std::string();
}

}  // namespace

StatusBar::StatusBar(StudioPicture& picture)
    : picture_(picture),
      bar_(GTK_WIDGET(g_object_ref_sink(gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 12)))),
      hint_(addLabel("Hint", 0)),
      point_(nullptr),
      size_(nullptr),
      zoom_(nullptr),
      progress_(gtk_progress_bar_new()) {
    gtk_widget_add_css_class(bar_, "status-bar");
    gtk_widget_set_hexpand(hint_, TRUE);
    gtk_label_set_ellipsize(GTK_LABEL(hint_), PANGO_ELLIPSIZE_END);
    gtk_label_set_xalign(GTK_LABEL(hint_), 0);

    gtk_progress_bar_set_show_text(GTK_PROGRESS_BAR(progress_), TRUE);
    gtk_widget_set_valign(progress_, GTK_ALIGN_CENTER);
    gtk_widget_set_size_request(progress_, 180, -1);
    gtk_widget_set_visible(progress_, FALSE);
    gtk_box_append(GTK_BOX(bar_), progress_);

    point_ = addLabel("Position", 14);
    size_ = addLabel("Picture size", 14);
    zoom_ = addLabel("Zoom", 7);

    GtkEventController* motion = gtk_event_controller_motion_new();
    const auto moved = +[](GtkEventController*, double x, double y, gpointer self) {
        static_cast<StatusBar*>(self)->showPoint(x, y);
    };
    const auto left =
        +[](GtkEventController*, gpointer self) { setText(static_cast<StatusBar*>(self)->point_, ""); };
    g_signal_connect(motion, "motion", G_CALLBACK(moved), this);
    g_signal_connect(motion, "leave", G_CALLBACK(left), this);
    g_object_set_data(G_OBJECT(bar_), "motion", motion);
    gtk_widget_add_controller(picture_.widget(), motion);
}

StatusBar::~StatusBar() {
    if (progressSource_ != 0) g_source_remove(progressSource_);
    auto* motion = GTK_EVENT_CONTROLLER(g_object_get_data(G_OBJECT(bar_), "motion"));
    gtk_widget_remove_controller(picture_.widget(), motion);
    g_object_unref(bar_);
}

GtkWidget* StatusBar::addLabel(const char* name, int widthInCharacters) {
    GtkWidget* label = gtk_label_new("");
    gtk_widget_add_css_class(label, "numeric");
    if (widthInCharacters > 0) gtk_label_set_width_chars(GTK_LABEL(label), widthInCharacters);
    gtk_label_set_xalign(GTK_LABEL(label), 1);
    gtk_widget_set_tooltip_text(label, name);
    gtk_box_append(GTK_BOX(bar_), label);
    return label;
}

void StatusBar::update() {
    OrvaneVistrel* control = picture_.control();
    setText(hint_, hintText(control));
    setText(size_, picture_.isEmpty() ? "" : sizeText(control));
    setText(zoom_, picture_.isEmpty() ? "" : zoomText(orvane_vistrel_get_zoom(control)));
    updateProgress();
}

void StatusBar::showPoint(double x, double y) {
    int imageX = 0, imageY = 0;
    const bool inside = orvane_vistrel_image_point_at(picture_.control(), x, y, &imageX, &imageY) != FALSE;
    setText(point_, inside ? std::to_string(imageX) + ", " + std::to_string(imageY) : "");
}

// A bar that comes and goes within a blink only disturbs.
void StatusBar::updateProgress() {
    if (picture_.isBusy()) {
        if (progressSource_ == 0)
            progressSource_ = g_timeout_add(kProgressAfterMs, &StatusBar::onProgressDue, this);
        return;
    }
    if (progressSource_ != 0) g_source_remove(progressSource_);
    progressSource_ = 0;
    gtk_widget_set_visible(progress_, FALSE);
}

void StatusBar::showProgress() {
    const char* title = picture_.runningTitle();
    gtk_progress_bar_set_text(GTK_PROGRESS_BAR(progress_), title != nullptr ? title : "");
    gtk_progress_bar_pulse(GTK_PROGRESS_BAR(progress_));
    gtk_widget_set_visible(progress_, TRUE);
}

gboolean StatusBar::onProgressDue(gpointer self) {
    auto* bar = static_cast<StatusBar*>(self);
    bar->showProgress();
    bar->progressSource_ = g_timeout_add(kPulseEveryMs, &StatusBar::onPulse, bar);
    return G_SOURCE_REMOVE;
}

gboolean StatusBar::onPulse(gpointer self) {
    static_cast<StatusBar*>(self)->showProgress();
    return G_SOURCE_CONTINUE;
}

}  // namespace orvane::studio
