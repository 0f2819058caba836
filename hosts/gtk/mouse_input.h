#pragma once

#include <gtk/gtk.h>

#include <orvane/geometry.h>

namespace orvane::gtk {

class VistrelHost;

/// Turns the widget's pointer and touch events into the mouse messages of the control. Positions are device
/// pixels.
class MouseInput {
 public:
    MouseInput(GtkWidget* widget, VistrelHost& host) noexcept;
    ~MouseInput();
    MouseInput(const MouseInput&) = delete;
    MouseInput& operator=(const MouseInput&) = delete;
    /// Ends a gesture whose release will not come: the widget goes away, or something else has taken the
    /// pointer.
    void endGesture() noexcept;

 private:
    void onEvent(GdkEvent* event) noexcept;
    void onPress(guint button, IntPoint position) noexcept;
    void onMotion(GdkEvent* event, IntPoint position) noexcept;
    void onTouch(GdkEvent* event, IntPoint position) noexcept;
    void onLeave(GdkEvent* event) noexcept;
    void press(IntPoint position) noexcept;
    void release(IntPoint position) noexcept;
    void replayHistory(GdkEvent* event) noexcept;
    /// Where a point of the event's surface lies in the widget.
    [[nodiscard]] IntPoint inWidget(double surfaceX, double surfaceY) const noexcept;

    GtkWidget* widget_;
    VistrelHost& host_;
    GtkEventController *pointer_, *crossing_;
    bool pressed_ = false;  ///< the control was told of a press of the left button, not of its release
    GdkEventSequence* touch_ = nullptr;  ///< the finger that is the mouse
    IntPoint last_;
};

}  // namespace orvane::gtk
