#include "hosts/gtk/support/screen.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace orvane::test {

bool until(const std::function<bool()>& condition) {
    constexpr gint64 kPatience = 10 * G_USEC_PER_SEC;
    const gint64 deadline = g_get_monotonic_time() + kPatience;
    while (!condition()) {
        if (g_get_monotonic_time() > deadline) return false;
        if (!g_main_context_iteration(nullptr, FALSE)) g_usleep(1000);
    }
    return true;
}

void settle(GtkWidget* widget) {
    if (GdkFrameClock* clock = gtk_widget_get_frame_clock(widget)) {
        const gint64 frame = gdk_frame_clock_get_frame_counter(clock);
        gdk_frame_clock_request_phase(clock, GDK_FRAME_CLOCK_PHASE_PAINT);
        EXPECT_TRUE(until([=] { return gdk_frame_clock_get_frame_counter(clock) > frame; }));
    }
    while (g_main_context_iteration(nullptr, FALSE)) {
    }
}

void pointer(const std::string& steps) {
    GPid process = 0;
    const std::string line = "xdotool " + steps;
    char** arguments = nullptr;
    ASSERT_TRUE(g_shell_parse_argv(line.c_str(), nullptr, &arguments, nullptr));
    const auto flags = GSpawnFlags(G_SPAWN_SEARCH_PATH | G_SPAWN_DO_NOT_REAP_CHILD);
    ASSERT_TRUE(g_spawn_async(nullptr, arguments, nullptr, flags, nullptr, nullptr, &process, nullptr))
        << line;
    g_strfreev(arguments);
    bool ended = false;
    g_child_watch_add(
        process, [](GPid, gint, gpointer flag) { *static_cast<bool*>(flag) = true; }, &ended);
    ASSERT_TRUE(until([&] { return ended; }));
    // The server has the events; the program has them a moment later.
    const gint64 quiet = g_get_monotonic_time() + 30000;
    until([&] { return g_get_monotonic_time() > quiet; });
}

void drag(const std::vector<ScreenPoint>& points) {
    const auto at = [](ScreenPoint p) {
        return "mousemove " + std::to_string(p.x) + " " + std::to_string(p.y) + " ";
    };
    std::string steps = at(points.front()) + "mousedown 1 sleep 0.02 ";
    for (const ScreenPoint& point : points) steps += at(point) + "sleep 0.02 ";
    pointer(steps + "mouseup 1");
}

Screen::Screen() : window_(GTK_WINDOW(gtk_window_new())), control_(ORVANE_VISTREL(orvane_vistrel_new())) {
    gtk_window_set_decorated(window_, FALSE);
    gtk_window_set_default_size(window_, kWidth, kHeight);
    gtk_window_set_child(window_, widget());
    gtk_window_present(window_);
    EXPECT_TRUE(until([this] { return gtk_widget_get_width(widget()) == kWidth; }));
    settle();
}

Screen::~Screen() { close(); }

void Screen::close() {
    if (window_ == nullptr) return;
    gtk_window_destroy(window_);
    window_ = nullptr;
    while (g_main_context_iteration(nullptr, FALSE)) {
    }
}

std::vector<unsigned char> pixelsOf(OrvaneVistrel* control) {
    GBytes* bytes = orvane_vistrel_get_image_array(control);
    if (bytes == nullptr) return {};
    gsize size = 0;
    const auto* data = static_cast<const unsigned char*>(g_bytes_get_data(bytes, &size));
    std::vector<unsigned char> pixels(data, data + size);
    g_bytes_unref(bytes);
    return pixels;
}

}  // namespace orvane::test
