#pragma once

#include <vector>

#include <gtk/gtk.h>

#include <orvane/geometry.h>

namespace orvane::gtk {

class VistrelHost;

/// Turns the widget's pointer and touch events into the mouse messages of the control. Positions are device
/// pixels.
///
/// Messages wait for the frame that will show their effect: the toolkit hands out events in the middle of
/// preparing a frame, where a signal handler that closed the window would leave it waiting for ever.
class MouseInput {
 public:
    MouseInput(GtkWidget* widget, VistrelHost& host) noexcept;
    ~MouseInput();
    MouseInput(const MouseInput&) = delete;
    MouseInput& operator=(const MouseInput&) = delete;

    /// Hands over what waits. Whoever is about to call a member does this first, so that everything keeps its
    /// order.
    void deliver() noexcept;
    /// Ends a gesture whose release will not come: the widget goes away, or something else has taken the
    /// pointer. What waits is dropped.
    void endGesture() noexcept;

 private:
    enum class Kind {
        Press,
        RightPress,
        Release,
        Motion,
        PastMotion,
        Leave,
        TouchBegin,
        TouchUpdate,
        TouchEnd,
        TouchCancel
    };
    struct Message {
        Kind kind;
        IntPoint position;
        bool left = false, right = false;  ///< buttons held during a motion
        GdkEventSequence* finger = nullptr;
        bool firstFinger = false;  ///< no other one was down when it came
    };

    void onEvent(GdkEvent* event) noexcept;
    void onMotionEvent(GdkEvent* event, IntPoint position) noexcept;
    void post(const Message& message) noexcept;
    void handle(const Message& message) noexcept;
    void onMotion(const Message& message) noexcept;
    void onLeave() noexcept;
    void onTouch(const Message& message) noexcept;
    void press(IntPoint position) noexcept;
    void release(IntPoint position) noexcept;
    void forget() noexcept;
    /// Where a point of the event's surface lies in the widget.
    [[nodiscard]] IntPoint inWidget(double surfaceX, double surfaceY) const noexcept;

    GtkWidget* widget_;
    VistrelHost& host_;
    GtkEventController *pointer_, *crossing_;
    std::vector<Message> waiting_;
    guint tick_ = 0;  ///< the next frame's, while something waits
    bool delivering_ = false;
    bool pressed_ = false;  ///< the control was told of a press of the left button, not of its release
    GdkEventSequence* touch_ = nullptr;  ///< the finger that is the mouse
    IntPoint last_;
};

}  // namespace orvane::gtk
