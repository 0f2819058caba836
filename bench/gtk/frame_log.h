#pragma once

#include <vector>

#include <gtk/gtk.h>

namespace orvane::bench {

/// How long a window takes from a pointer event to the frame that shows its effect, in milliseconds.
///
/// The toolkit collects motion and hands it out once for each frame, when it begins to prepare it. `work`
/// begins there: what the program makes of the motion. `whole` begins when the server saw the newest
/// position, and so holds the wait for the frame too. Both end when the server has drawn the frame.
class FrameLog {
 public:
    struct Times {
        std::vector<double> work, whole;
    };

    explicit FrameLog(GtkWidget* window) : window_(window), controller_(gtk_event_controller_legacy_new()) {
        gtk_event_controller_set_propagation_phase(controller_, GTK_PHASE_CAPTURE);
        const auto happened = +[](GtkEventController*, GdkEvent* event, gpointer log) -> gboolean {
            static_cast<FrameLog*>(log)->note(event);
            return GDK_EVENT_PROPAGATE;
        };
        g_signal_connect(controller_, "event", G_CALLBACK(happened), this);
        gtk_widget_add_controller(window_, controller_);
        const auto painted = +[](GdkFrameClock*, gpointer log) { static_cast<FrameLog*>(log)->onPainted(); };
        clock_ = gtk_widget_get_frame_clock(window_);
        g_signal_connect(clock_, "after-paint", G_CALLBACK(painted), this);
    }
    ~FrameLog() {
        g_signal_handlers_disconnect_by_data(clock_, this);
        gtk_widget_remove_controller(window_, controller_);
    }
    FrameLog(const FrameLog&) = delete;
    FrameLog& operator=(const FrameLog&) = delete;

    /// What was measured since the last call.
    [[nodiscard]] Times take() {
        Times taken = std::move(times_);
        times_ = {};
        return taken;
    }

 private:
    void note(GdkEvent* event) {
        const GdkEventType type = gdk_event_get_event_type(event);
        if (type != GDK_MOTION_NOTIFY && type != GDK_BUTTON_PRESS && type != GDK_BUTTON_RELEASE) return;
        if (handedOutUs_ == 0) handedOutUs_ = g_get_monotonic_time();
        serverMs_ = gdk_event_get_time(event);
    }

    void onPainted() {
        if (handedOutUs_ == 0) return;
        gdk_display_sync(gdk_display_get_default());
        const gint64 now = g_get_monotonic_time();
        times_.work.push_back(double(now - handedOutUs_) / 1000);
        // The server's clock is the system's, in 32 bits.
        times_.whole.push_back(double(guint32(now / 1000) - serverMs_) + double(now % 1000) / 1000);
        handedOutUs_ = 0;
    }

    GtkWidget* window_;
    GtkEventController* controller_;
    GdkFrameClock* clock_ = nullptr;
    Times times_;
    gint64 handedOutUs_ = 0;  ///< 0 while no event waits for its frame
    guint32 serverMs_ = 0;
};

}  // namespace orvane::bench
