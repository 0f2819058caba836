// How long the widget takes from a pointer event to the frame that shows it, against a widget that only shows
// pixels that lie ready; and the same in the Studio's window.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include <gtk/gtk.h>

#include "control/paint_mode.h"
#include "gtk/frame_log.h"
#include "gtk/orvane-gtk.h"
#include "gtk/plain_picture.h"
#include "gtk/pointer.h"
#include "gtk/screen_pixels.h"
#include "studio/application.h"
#include "studio/window.h"
#include "support/photograph.h"

namespace {

using namespace orvane;
using namespace orvane::bench;

constexpr IntSize kPicture{6000, 4000}, kView{1280, 900};
constexpr int kPositions = 500;
constexpr double kLimitMs = 16.0;

IntPoint wander(int i, IntSize view) {
    return {int(view.width * (0.5 + 0.31 * std::sin(i * 0.021))),
            int(view.height * (0.5 + 0.31 * std::sin(i * 0.034)))};
}

IntPoint farCorner(int i, IntSize view) {
    if (i == 0) return {view.width / 4, view.height / 4};
    return {int(view.width * (0.58 + 0.24 * std::cos(i * 0.030))),
            int(view.height * (0.56 + 0.28 * std::sin(i * 0.047)))};
}

// Where the bar of the free rotation has its slider.
IntPoint alongSlider(int i, IntSize view) { return {220 + int(100 * std::sin(i * 0.030)), view.height - 37}; }

struct Gesture {
    const char* name;
    int mode;
    IntPoint (*position)(int, IntSize view);
    bool showsAtFit = true;  ///< whether it changes what is seen while the whole picture is shown
};

const Gesture kGestures[] = {
    {"dragging the picture", PaintMode::None, wander, false},
    {"pencil", PaintMode::Pencil, wander},
    {"brush, widest nib", PaintMode::Brush, wander},
    {"eraser", PaintMode::Eraser, wander},
    {"spray", PaintMode::Spray, wander},
    {"rectangle", PaintMode::Rectangle, farCorner},
    {"selection", PaintMode::Selection, farCorner},
    {"rotation's slider", PaintMode::Rotation, alongSlider},
};

void loadPhotograph(OrvaneVistrel* control) {
    const std::vector<Argb> pixels = photograph(kPicture.width, kPicture.height);
    orvane_vistrel_load_from_image_array(control, reinterpret_cast<const guint8*>(pixels.data()),
                                         pixels.size() * sizeof(Argb), kPicture.width, kPicture.height);
}

/// A window and what is measured in it.
struct Stage {
    const char* name;
    GtkWindow* window;
    OrvaneVistrel* control;
    GtkWidget* plain;  ///< takes turns with the control; null when there is none

    void present() const {
        gtk_window_set_default_size(window, kView.width, kView.height);
        loadPhotograph(control);
        gtk_window_present(window);
        runFor(1000);
    }

    void show(GtkWidget* widget) const {
        if (plain == nullptr) return;
        gtk_stack_set_visible_child(GTK_STACK(gtk_widget_get_parent(widget)), widget);
        runFor(200);
    }

    [[nodiscard]] IntSize view() const {
        return {gtk_widget_get_width(GTK_WIDGET(control)), gtk_widget_get_height(GTK_WIDGET(control))};
    }
    /// The view's corner on the screen.
    [[nodiscard]] IntPoint origin() const {
        const IntPoint corner = originOf(window);
        double surfaceX = 0, surfaceY = 0, x = 0, y = 0;
        gtk_native_get_surface_transform(GTK_NATIVE(window), &surfaceX, &surfaceY);
        gtk_widget_translate_coordinates(GTK_WIDGET(control), GTK_WIDGET(window), 0, 0, &x, &y);
        return {corner.x + int(surfaceX + x), corner.y + int(surfaceY + y)};
    }
    [[nodiscard]] std::vector<std::uint32_t> seen() const {
        const IntPoint corner = origin();
        return screenPixels(gdk_display_get_default(), {corner.x, corner.y, view().width, view().height});
    }
};

Stage newWidgetStage() {
    GtkWidget *window = gtk_window_new(), *stack = gtk_stack_new();
    auto* control = ORVANE_VISTREL(orvane_vistrel_new());
    GtkWidget* plain = newPlainPicture(kView.width, kView.height);
    gtk_window_set_decorated(GTK_WINDOW(window), FALSE);
    gtk_stack_add_child(GTK_STACK(stack), GTK_WIDGET(control));
    gtk_stack_add_child(GTK_STACK(stack), plain);
    gtk_window_set_child(GTK_WINDOW(window), stack);
    return {"the widget alone", GTK_WINDOW(window), control, plain};
}

Stage newStudioStage() {
    GtkApplication* application = studio::newApplication();
    g_application_register(G_APPLICATION(application), nullptr, nullptr);
    studio::StudioWindow& window = studio::StudioWindow::open(application);
    return {"the Studio", window.window(), window.picture().control(), nullptr};
}

struct Figures {
    double median = 0, late = 0, longest = 0;
};

Figures figuresOf(std::vector<double> times) {
    if (times.empty()) return {};
    std::sort(times.begin(), times.end());
    const auto at = [&](double part) { return times[std::size_t(part * double(times.size() - 1))]; };
    return {at(0.5), at(0.95), times.back()};
}

struct Measured {
    std::size_t frames = 0;
    Figures work, whole;
    double releaseMs = 0;
    bool changed = false;  ///< the screen, by the motion
};

/// False when the pointer cannot be moved.
bool perform(const Stage& stage, FrameLog& log, const Gesture& gesture, Measured& measured) {
    const Pointer pointer(stage.origin());
    std::vector<IntPoint> path;
    for (int i = 1; i <= kPositions; ++i) path.push_back(gesture.position(i, stage.view()));
    if (!pointer.press(gesture.position(0, stage.view()))) return false;
    const auto before = stage.seen();
    (void)log.take();
    if (!pointer.follow(path)) return false;
    const FrameLog::Times motion = log.take();
    measured.changed = stage.seen() != before;
    if (!pointer.release()) return false;
    measured.releaseMs = figuresOf(log.take().work).longest;
    measured.frames = motion.work.size();
    measured.work = figuresOf(motion.work);
    measured.whole = figuresOf(motion.whole);
    return true;
}

void prepare(OrvaneVistrel* control, const Gesture& gesture, bool fit) {
    fit ? orvane_vistrel_zoom_to_fit(control) : orvane_vistrel_actial_size(control);
    orvane_vistrel_set_tool_brush_size(control, 11);
    orvane_vistrel_set_paint_status(control, gesture.mode);
    runFor(200);
}

void takeBack(OrvaneVistrel* control, guint64 serial) {
    orvane_vistrel_set_paint_status(control, PaintMode::None);
    if (orvane_vistrel_get_picture_serial(control) != serial) orvane_vistrel_undo(control);
    runFor(200);
}

void printHeader() {
    std::printf("%-30s | %6s | %6s %6s %6s | %6s %6s | %6s %5s | %7s\n", "ms from the event to its frame",
                "frames", "median", "95 %", "max", "whole", "95 %", "plain", "ratio", "release");
}

void printRow(const std::string& name, const Measured& ours, const Measured& plain) {
    std::printf("%-30s | %6zu | %6.2f %6.2f %6.2f | %6.2f %6.2f |", name.c_str(), ours.frames,
                ours.work.median, ours.work.late, ours.work.longest, ours.whole.median, ours.whole.late);
    if (plain.frames > 0) {
        std::printf(" %6.2f %5.2f |", plain.work.median, ours.work.median / plain.work.median);
    } else {
        std::printf(" %6s %5s |", "", "");
    }
    std::printf(" %7.1f\n", ours.releaseMs);
    std::fflush(stdout);
}

/// The median of the work; negative when the gesture did not do what it should.
double measure(const Stage& stage, FrameLog& log, const Gesture& gesture, bool fit) {
    const std::string name = std::string(gesture.name) + (fit ? ", fit" : ", zoom 1");
    Measured ours, plain;
    if (stage.plain != nullptr) {
        stage.show(stage.plain);
        if (!perform(stage, log, gesture, plain)) return -1;
    }
    stage.show(GTK_WIDGET(stage.control));
    const guint64 serial = orvane_vistrel_get_picture_serial(stage.control);
    prepare(stage.control, gesture, fit);
    if (!perform(stage, log, gesture, ours)) return -1;
    takeBack(stage.control, serial);
    if (ours.frames == 0 || ours.changed != (gesture.showsAtFit || !fit)) {
        std::printf("%s: wrong result\n", name.c_str());
        return -1;
    }
    printRow(name, ours, plain);
    return ours.work.median;
}

/// The slowest median; negative when something went wrong.
double measureAll(const Stage& stage, std::string_view wanted) {
    stage.present();
    FrameLog log(GTK_WIDGET(stage.window));
    std::printf("\n%s: %d x %d pixels in a view of %d x %d\n", stage.name, kPicture.width, kPicture.height,
                stage.view().width, stage.view().height);
    printHeader();
    double slowest = 0;
    for (const bool fit : {true, false}) {
        for (const Gesture& gesture : kGestures) {
            if (std::string_view(gesture.name).find(wanted) == std::string_view::npos) continue;
            const double median = measure(stage, log, gesture, fit);
            if (median < 0) return -1;
            slowest = std::max(slowest, median);
        }
    }
    gtk_widget_set_visible(GTK_WIDGET(stage.window), FALSE);
    runFor(200);
    return slowest;
}

}  // namespace

// An argument picks the gestures whose names contain it.
int main(int count, char** arguments) {
    gtk_init();
    if (!isOnXServer(gdk_display_get_default())) {
        std::puts("The pointer is moved through an X server: run this under tests/support/with_display.");
        return 1;
    }
    const std::string_view wanted = count > 1 ? arguments[1] : "";
    const double widget = measureAll(newWidgetStage(), wanted);
    const double studio = widget < 0 ? -1 : measureAll(newStudioStage(), wanted);
    if (studio < 0) return 1;
    const double slowest = std::max(widget, studio);
    std::printf("\nslowest median %.2f ms: %s the limit of %.0f ms\n", slowest,
                slowest <= kLimitMs ? "within" : "OVER", kLimitMs);
    return 0;
}
