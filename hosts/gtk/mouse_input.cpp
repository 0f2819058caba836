#include "gtk/mouse_input.h"

#include <cmath>

#include "gtk/vistrel_host.h"

namespace orvane::gtk {
namespace {

bool isTouch(GdkEventType type) {
    return type == GDK_TOUCH_BEGIN || type == GDK_TOUCH_UPDATE || type == GDK_TOUCH_END ||
           type == GDK_TOUCH_CANCEL;
}

}  // namespace

// The legacy controller is the one that reports a second button pressed while the first is held.
MouseInput::MouseInput(GtkWidget* widget, VistrelHost& host) noexcept
    : widget_(widget),
      host_(host),
      pointer_(gtk_event_controller_legacy_new()),
      crossing_(gtk_event_controller_motion_new()) {
    const auto event = +[](GtkEventController*, GdkEvent* happened, gpointer input) -> gboolean {
        static_cast<MouseInput*>(input)->onEvent(happened);
        return GDK_EVENT_PROPAGATE;
    };
    const auto leave = +[](GtkEventController* controller, gpointer input) {
        static_cast<MouseInput*>(input)->onLeave(gtk_event_controller_get_current_event(controller));
    };
    g_signal_connect(pointer_, "event", G_CALLBACK(event), this);
    g_signal_connect(crossing_, "leave", G_CALLBACK(leave), this);
    for (GtkEventController* controller : {pointer_, crossing_}) {
        gtk_widget_add_controller(widget, GTK_EVENT_CONTROLLER(g_object_ref(controller)));
    }
}

MouseInput::~MouseInput() {
    for (GtkEventController* controller : {pointer_, crossing_}) {
        g_signal_handlers_disconnect_by_data(controller, this);
        g_object_unref(controller);
    }
}

void MouseInput::onEvent(GdkEvent* event) noexcept {
    const GdkEventType type = gdk_event_get_event_type(event);
    if (type == GDK_GRAB_BROKEN) return endGesture();
    double x = 0, y = 0;
    if (!gdk_event_get_position(event, &x, &y)) return;
    const IntPoint position = inWidget(x, y);
    if (type == GDK_BUTTON_PRESS) {
        onPress(gdk_button_event_get_button(event), position);
    } else if (type == GDK_BUTTON_RELEASE) {
        if (gdk_button_event_get_button(event) == GDK_BUTTON_PRIMARY) release(position);
    } else if (type == GDK_MOTION_NOTIFY) {
        onMotion(event, position);
    } else if (isTouch(type)) {
        onTouch(event, position);
    }
}

void MouseInput::onPress(guint button, IntPoint position) noexcept {
    if (gtk_widget_get_focus_on_click(widget_)) gtk_widget_grab_focus(widget_);
    if (button == GDK_BUTTON_PRIMARY) press(position);
    if (button == GDK_BUTTON_SECONDARY) host_.rightPress(position);
}

void MouseInput::onMotion(GdkEvent* event, IntPoint position) noexcept {
    const GdkModifierType held = gdk_event_get_modifier_state(event);
    const bool left = (held & GDK_BUTTON1_MASK) != 0, right = (held & GDK_BUTTON3_MASK) != 0;
    if (pressed_ && !left && touch_ == nullptr) release(position);  // the release went elsewhere
    if (left && !pressed_) return;                                  // the press did
    if (pressed_) replayHistory(event);
    last_ = position;
    host_.move(position, {pressed_, right});
}

// A frame brings one motion event; the positions that the pointer passed since the last one are its history.
void MouseInput::replayHistory(GdkEvent* event) noexcept {
    guint count = 0;
    GdkTimeCoord* history = gdk_event_get_history(event, &count);
    for (guint i = 0; i < count; ++i) {
        if ((history[i].flags & GDK_AXIS_FLAG_X) == 0 || (history[i].flags & GDK_AXIS_FLAG_Y) == 0) continue;
        host_.move(inWidget(history[i].axes[GDK_AXIS_X], history[i].axes[GDK_AXIS_Y]), {true, false});
    }
    g_free(history);
}

// The first finger is the left button.
void MouseInput::onTouch(GdkEvent* event, IntPoint position) noexcept {
    GdkEventSequence* finger = gdk_event_get_event_sequence(event);
    const GdkEventType type = gdk_event_get_event_type(event);
    if (type == GDK_TOUCH_BEGIN && touch_ == nullptr && !pressed_) {
        touch_ = finger;
        return press(position);
    }
    if (finger != touch_) return;
    if (type == GDK_TOUCH_UPDATE && pressed_) {
        last_ = position;
        return host_.move(position, {true, false});
    }
    touch_ = nullptr;
    release(type == GDK_TOUCH_CANCEL ? last_ : position);
}

// Without a button held the toolkit reports nothing outside the widget. One move there is what the control,
// which holds the mouse while it shows a cursor of its own, needs to notice that the pointer has left.
void MouseInput::onLeave(GdkEvent* event) noexcept {
    if (pressed_ || !host_.isCaptured()) return;
    const IntSize size = host_.clientSize();
    IntPoint position{-1, -1};
    double x = 0, y = 0;
    if (event != nullptr && gdk_event_get_position(event, &x, &y)) position = inWidget(x, y);
    if (IntRect{0, 0, size.width, size.height}.contains(position)) position = {-1, -1};
    host_.move(position, {});
}

void MouseInput::press(IntPoint position) noexcept {
    last_ = position;
    pressed_ = host_.press(position);
}

void MouseInput::release(IntPoint position) noexcept {
    if (!pressed_) return;
    pressed_ = false;
    last_ = position;
    host_.release(position);
}

void MouseInput::endGesture() noexcept {
    touch_ = nullptr;
    release(last_);
}

// The transforms are computed in single precision: a position just below a whole number is that number.
IntPoint MouseInput::inWidget(double surfaceX, double surfaceY) const noexcept {
    GtkNative* native = gtk_widget_get_native(widget_);
    if (native == nullptr) return last_;
    constexpr double kNoise = 0.001;
    const int scale = gtk_widget_get_scale_factor(widget_);
    double originX = 0, originY = 0, x = 0, y = 0;
    gtk_native_get_surface_transform(native, &originX, &originY);
    gtk_widget_translate_coordinates(GTK_WIDGET(native), widget_, surfaceX - originX, surfaceY - originY, &x,
                                     &y);
    return {int(std::floor(x * scale + kNoise)), int(std::floor(y * scale + kNoise))};
}

}  // namespace orvane::gtk
