#pragma once

#include <string>
#include <vector>

#include <gtk/gtk.h>

#include <orvane/geometry.h>

namespace orvane::bench {

/// Lets the main loop run until the condition holds. It sleeps in between: a loop that spins would take the
/// processor from the display's server.
template <class Condition>
void runUntil(const Condition& condition) {
    while (!condition()) g_main_context_iteration(nullptr, TRUE);
}

inline void runFor(guint milliseconds) {
    bool ended = false;
    const auto end = [](gpointer flag) -> gboolean {
        *static_cast<bool*>(flag) = true;
        return G_SOURCE_REMOVE;
    };
    g_timeout_add(milliseconds, end, &ended);
    runUntil([&] { return ended; });
}

/// The display's own pointer, moved by another program as a hand would: the events come through the server.
class Pointer {
 public:
    /// Where the window's upper left corner lies on the screen.
    explicit Pointer(IntPoint origin) : origin_(origin) {}

    [[nodiscard]] bool press(IntPoint at) const { return run(move(at) + "mousedown 1"); }
    [[nodiscard]] bool release() const { return run("mouseup 1"); }
    /// One position every four milliseconds, as usual mice report them.
    [[nodiscard]] bool follow(const std::vector<IntPoint>& path) const {
        std::string steps;
        for (const IntPoint point : path) steps += move(point) + "sleep 0.004 ";
        return run(steps);
    }

 private:
    [[nodiscard]] std::string move(IntPoint point) const {
        return "mousemove " + std::to_string(origin_.x + point.x) + " " +
               std::to_string(origin_.y + point.y) + " ";
    }

    /// Returns when the steps are done and the events have been shown.
    static bool run(const std::string& steps) {
        char** words = nullptr;
        GPid process = 0;
        if (!g_shell_parse_argv(("xdotool " + steps).c_str(), nullptr, &words, nullptr)) return false;
        const auto flags = GSpawnFlags(G_SPAWN_SEARCH_PATH | G_SPAWN_DO_NOT_REAP_CHILD);
        const bool started =
            g_spawn_async(nullptr, words, nullptr, flags, nullptr, nullptr, &process, nullptr) != FALSE;
        g_strfreev(words);
        if (!started) return false;
        bool ended = false;
        const auto end = [](GPid, int, gpointer flag) { *static_cast<bool*>(flag) = true; };
        g_child_watch_add(process, end, &ended);
        runUntil([&] { return ended; });
        runFor(100);
        return true;
    }

    IntPoint origin_;
};

}  // namespace orvane::bench
