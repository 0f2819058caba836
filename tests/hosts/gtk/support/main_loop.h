#pragma once

#include <gtk/gtk.h>

namespace orvane::test {

/// Lets the main loop run until the condition holds; false when it does not within some seconds.
template <class Condition>
[[nodiscard]] bool loopUntil(const Condition& condition, double seconds = 10) {
    const auto wake = [](gpointer) -> gboolean { return G_SOURCE_CONTINUE; };
    const guint waker = g_timeout_add(10, wake, nullptr);
    const gint64 end = g_get_monotonic_time() + gint64(seconds * G_USEC_PER_SEC);
    bool holds = condition();
    while (!holds && g_get_monotonic_time() < end) {
        g_main_context_iteration(nullptr, TRUE);
        holds = condition();
    }
    g_source_remove(waker);
    return holds;
}

}  // namespace orvane::test
