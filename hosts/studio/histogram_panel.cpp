#include "studio/histogram_panel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string>

#include "studio/support/object_ref.h"

namespace orvane::studio {
namespace {

constexpr int kLevels = 256, kWidth = 256 + 2, kHeight = 130;
constexpr guint kQuietMs = 120;

using Counts = std::array<int, kLevels>;

struct Curve {
    const char* name;
    int* (*read)(OrvaneVistrel*, gsize* count);
    GdkRGBA colour;
};

constexpr Curve kCurves[] = {
    {"Luma", orvane_vistrel_get_l_histogram, {0.55F, 0.55F, 0.55F, 0.6F}},
    {"Red", orvane_vistrel_get_r_histogram, {0.9F, 0.16F, 0.16F, 0.95F}},
    {"Green", orvane_vistrel_get_g_histogram, {0.1F, 0.62F, 0.2F, 0.95F}},
    {"Blue", orvane_vistrel_get_b_histogram, {0.2F, 0.42F, 0.95F, 0.95F}},
};
constexpr std::size_t kCurveCount = std::size(kCurves);

/// The mean and the middle of all levels that were counted.
struct Statistics {
    double mean = 0;
    int median = 0;
    std::int64_t pixels = 0;

    explicit Statistics(const Counts& counts) {
        double sum = 0;
        for (int level = 0; level < kLevels; ++level) {
            pixels += counts[std::size_t(level)];
            sum += double(level) * counts[std::size_t(level)];
        }
        if (pixels == 0) return;
        mean = sum / double(pixels);
        std::int64_t below = counts[0];
        while (median < kLevels - 1 && below * 2 < pixels) below += counts[std::size_t(++median)];
    }
};

/// The panel. Its drawing area owns it. Reading a large picture takes some milliseconds for each curve, so
/// the curves are read one by one, when nothing else is to be done.
class HistogramPanel {
 public:
    explicit HistogramPanel(OrvaneVistrel* control)
        : control_(ObjectRef<OrvaneVistrel>::share(control)),
          box_(gtk_box_new(GTK_ORIENTATION_VERTICAL, 6)),
          area_(gtk_drawing_area_new()),
          summary_(gtk_label_new("")) {
        GtkWidget* title = gtk_label_new("Histogram");
        gtk_widget_add_css_class(title, "heading");
        gtk_label_set_xalign(GTK_LABEL(title), 0);
        gtk_label_set_xalign(GTK_LABEL(summary_), 0);
        gtk_widget_add_css_class(summary_, "numeric");
        gtk_widget_add_css_class(summary_, "dim-label");
        gtk_widget_add_css_class(box_, "histogram");
        auto* drawing = GTK_DRAWING_AREA(area_);
        gtk_drawing_area_set_content_width(drawing, kWidth);
        gtk_drawing_area_set_content_height(drawing, kHeight);
        gtk_drawing_area_set_draw_func(drawing, &onDraw, this, nullptr);
        for (GtkWidget* part : {title, area_, summary_}) gtk_box_append(GTK_BOX(box_), part);
        gtk_accessible_update_property(GTK_ACCESSIBLE(area_), GTK_ACCESSIBLE_PROPERTY_LABEL,
                                       "Histogram of luma, red, green and blue", -1);
        g_signal_connect_swapped(control, "picture-changed", G_CALLBACK(&onChanged), this);
        g_signal_connect_swapped(control, "notify::busy", G_CALLBACK(&onChanged), this);
        g_signal_connect_swapped(area_, "map", G_CALLBACK(&onChanged), this);
        // Its widgets go before it does, and what the control still tells meanwhile comes too late.
        g_signal_connect_swapped(area_, "destroy", G_CALLBACK(&onGone), this);
        g_object_set_data_full(G_OBJECT(box_), "histogram-panel", this,
                               [](gpointer self) { delete static_cast<HistogramPanel*>(self); });
    }

    ~HistogramPanel() {
        stop();
        g_signal_handlers_disconnect_by_data(control_.get(), this);
    }

    HistogramPanel(const HistogramPanel&) = delete;
    HistogramPanel& operator=(const HistogramPanel&) = delete;

    [[nodiscard]] GtkWidget* widget() const { return box_; }

 private:
    void stop() {
        if (source_ != 0) g_source_remove(source_);
        source_ = 0;
    }

    static void onGone(HistogramPanel* self) {
        self->stop();
        g_signal_handlers_disconnect_by_data(self->control_.get(), self);
    }

    // A change that comes while curves are read has them read anew.
    static void onChanged(HistogramPanel* self) {
        if (!gtk_widget_get_mapped(self->area_) || orvane_vistrel_get_busy(self->control_.get())) return;
        self->stop();
        if (self->shown_ == orvane_vistrel_get_picture_serial(self->control_.get())) return;
        self->next_ = 0;
        self->source_ = g_timeout_add(kQuietMs, &onQuiet, self);
    }

    static gboolean onQuiet(gpointer data) {
        static_cast<HistogramPanel*>(data)->source_ = g_idle_add_full(G_PRIORITY_LOW, &onIdle, data, nullptr);
        return G_SOURCE_REMOVE;
    }

    static gboolean onIdle(gpointer data) {
        auto* self = static_cast<HistogramPanel*>(data);
        if (self->readNext()) return G_SOURCE_CONTINUE;
        self->source_ = 0;
        return G_SOURCE_REMOVE;
    }

    /// Reads one curve; false when there is none left.
    bool readNext() {
        if (orvane_vistrel_get_busy(control_.get())) return false;
        gsize count = 0;
        int* levels = kCurves[next_].read(control_.get(), &count);
        Counts& counts = reading_[next_];
        counts.fill(0);
        std::copy_n(levels, std::min(count, gsize(kLevels)), counts.begin());
        g_free(levels);
        if (++next_ < kCurveCount) return true;
        counts_ = reading_;
        shown_ = orvane_vistrel_get_picture_serial(control_.get());
        describe();
        gtk_widget_queue_draw(area_);
        return false;
    }

    void describe() {
        const Statistics luma(counts_[0]);
        char text[80] = "";
        if (luma.pixels > 0)
            g_snprintf(text, sizeof text, "Luma: mean %.1f, median %d", luma.mean, luma.median);
        gtk_label_set_text(GTK_LABEL(summary_), text);
        gtk_accessible_update_property(GTK_ACCESSIBLE(area_), GTK_ACCESSIBLE_PROPERTY_DESCRIPTION, text, -1);
    }

    // Black and white often outnumber everything else; they may be cut off at the top.
    [[nodiscard]] int highestInside() const {
        int highest = 1;
        for (const Counts& counts : counts_) {
            highest = std::max(highest, *std::max_element(counts.begin() + 1, counts.end() - 1));
        }
        return highest;
    }

    void trace(cairo_t* cairo, const Counts& counts, double width, double height, double highest) const {
        for (int level = 0; level < kLevels; ++level) {
            const double share = std::min(1.0, counts[std::size_t(level)] / highest);
            cairo_line_to(cairo, 1 + level * (width - 2) / (kLevels - 1), height - share * (height - 1));
        }
    }

    static void onDraw(GtkDrawingArea*, cairo_t* cairo, int width, int height, gpointer data) {
        const auto* self = static_cast<HistogramPanel*>(data);
        cairo_set_source_rgba(cairo, 0.5, 0.5, 0.5, 0.12);
        cairo_rectangle(cairo, 0, 0, width, height);
        cairo_fill(cairo);
        const double highest = self->highestInside();
        for (std::size_t i = 0; i < kCurveCount; ++i) {
            gdk_cairo_set_source_rgba(cairo, &kCurves[i].colour);
            const bool isArea = i == 0;
            if (isArea) cairo_move_to(cairo, 1, height);
            self->trace(cairo, self->counts_[i], width, height, highest);
            if (isArea) {
                cairo_line_to(cairo, width - 1, height);
                cairo_fill(cairo);
            } else {
                cairo_set_line_width(cairo, 1.2);
                cairo_stroke(cairo);
            }
        }
    }

    ObjectRef<OrvaneVistrel> control_;
    GtkWidget *box_, *area_, *summary_;
    std::array<Counts, kCurveCount> counts_{}, reading_{};
    std::size_t next_ = 0;
    guint64 shown_ = 0;
    guint source_ = 0;
};

}  // namespace

GtkWidget* newHistogramPanel(OrvaneVistrel* control) { return (new HistogramPanel(control))->widget(); }

}  // namespace orvane::studio
