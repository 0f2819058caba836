#include "gtk/mouse_input.h"

#include <cmath>

#include "gtk/vistrel_host.h"

namespace orvane::gtk {
namespace {

constexpr std::size_t kMostWaiting = 100000;

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
    const auto leave = +[](GtkEventController*, gpointer input) {
        static_cast<MouseInput*>(input)->post({Kind::Leave, {}});
    };
    g_signal_connect(pointer_, "event", G_CALLBACK(event), this);
    g_signal_connect(crossing_, "leave", G_CALLBACK(leave), this);
    for (GtkEventController* controller : {pointer_, crossing_}) {
        gtk_widget_add_controller(widget, GTK_EVENT_CONTROLLER(g_object_ref(controller)));
    }
}

MouseInput::~MouseInput() {
    forget();
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
    const guint button =
        type == GDK_BUTTON_PRESS || type == GDK_BUTTON_RELEASE ? gdk_button_event_get_button(event) : 0;
    switch (type) {
        case GDK_BUTTON_PRESS:
            if (gtk_widget_get_focus_on_click(widget_)) gtk_widget_grab_focus(widget_);
            if (button == GDK_BUTTON_PRIMARY) post({Kind::Press, position});
            if (button == GDK_BUTTON_SECONDARY) post({Kind::RightPress, position});
            break;
        case GDK_BUTTON_RELEASE:
            if (button == GDK_BUTTON_PRIMARY) post({Kind::Release, position});
            break;
        case GDK_MOTION_NOTIFY:
            onMotionEvent(event, position);
            break;
        case GDK_TOUCH_BEGIN:
        case GDK_TOUCH_UPDATE:
        case GDK_TOUCH_END:
        case GDK_TOUCH_CANCEL: {
            const auto kind = Kind(int(Kind::TouchBegin) + int(type) - int(GDK_TOUCH_BEGIN));
            const bool first = gdk_touch_event_get_emulating_pointer(event) != FALSE;
            post({kind, position, false, false, gdk_event_get_event_sequence(event), first});
            break;
        }
        default:
            break;
    }
}

// A frame brings one motion event; the positions that the pointer passed since the last one are its history.
void MouseInput::onMotionEvent(GdkEvent* event, IntPoint position) noexcept {
    guint count = 0;
    GdkTimeCoord* history = gdk_event_get_history(event, &count);
    for (guint i = 0; i < count; ++i) {
        if ((history[i].flags & GDK_AXIS_FLAG_X) == 0 || (history[i].flags & GDK_AXIS_FLAG_Y) == 0) continue;
        post({Kind::PastMotion, inWidget(history[i].axes[GDK_AXIS_X], history[i].axes[GDK_AXIS_Y]), true});
    }
    g_free(history);
    const GdkModifierType held = gdk_event_get_modifier_state(event);
    post({Kind::Motion, position, (held & GDK_BUTTON1_MASK) != 0, (held & GDK_BUTTON3_MASK) != 0});
}

// --- what waits ---

void MouseInput::post(const Message& message) noexcept try {
    if (waiting_.size() >= kMostWaiting) return;
    waiting_.push_back(message);
    if (tick_ != 0) return;
    const auto due = +[](GtkWidget*, GdkFrameClock*, gpointer input) -> gboolean {
        auto* self = static_cast<MouseInput*>(input);
        self->tick_ = 0;
        self->deliver();
        return G_SOURCE_REMOVE;
    };
    tick_ = gtk_widget_add_tick_callback(widget_, due, this, nullptr);
} catch (...) {
    // Without memory a movement is lost.
}

void MouseInput::deliver() noexcept {
    if (delivering_ || waiting_.empty()) return;
    GtkWidget* widget = GTK_WIDGET(g_object_ref(widget_));
    delivering_ = true;
    // A handler may run a main loop, in which more comes, or drop all that waits.
    for (std::size_t i = 0; i < waiting_.size(); ++i) handle(Message(waiting_[i]));
    delivering_ = false;
    forget();
    g_object_unref(widget);
}

void MouseInput::forget() noexcept {
    waiting_.clear();
    if (tick_ != 0) gtk_widget_remove_tick_callback(widget_, tick_);
    tick_ = 0;
}

void MouseInput::handle(const Message& message) noexcept {
    switch (message.kind) {
        case Kind::Press:
            return press(message.position);
        case Kind::RightPress:
            return host_.rightPress(message.position);
        case Kind::Release:
            return release(message.position);
        case Kind::PastMotion:
            if (pressed_) host_.move(message.position, {true, false});
            return;
        case Kind::Motion:
            return onMotion(message);
        case Kind::Leave:
            return onLeave();
        default:
            return onTouch(message);
    }
}

// --- messages ---

void MouseInput::onMotion(const Message& message) noexcept {
    if (pressed_ && !message.left && touch_ == nullptr)
        release(message.position);          // the release went elsewhere
    if (message.left && !pressed_) return;  // the press did
    last_ = message.position;
    host_.move(message.position, {pressed_, message.right});
}

// The first finger is the left button. If the one before has been kept from telling its end, it tells now.
void MouseInput::onTouch(const Message& message) noexcept {
    if (message.kind == Kind::TouchBegin && message.firstFinger && touch_ != nullptr) {
        touch_ = nullptr;
        release(last_);
    }
    if (message.kind == Kind::TouchBegin && touch_ == nullptr && !pressed_) {
        touch_ = message.finger;
        return press(message.position);
    }
    if (message.finger != touch_) return;
    if (message.kind == Kind::TouchUpdate && pressed_) {
        last_ = message.position;
        return host_.move(message.position, {true, false});
    }
    touch_ = nullptr;
    release(message.kind == Kind::TouchCancel ? last_ : message.position);
}

// Without a button held the toolkit reports nothing outside the widget. One move there is what the control,
// which holds the mouse while it shows a cursor of its own, needs to notice that the pointer has left. Far
// away, because neither a nib's marker nor a grab handle may reach there; the toolkit does not tell where it
// is.
void MouseInput::onLeave() noexcept {
    constexpr IntPoint kFarAway{-32768, -32768};
    if (!pressed_ && host_.isCaptured()) host_.move(kFarAway, {});
}

void MouseInput::press(IntPoint position) noexcept {
    last_ = position;
    pressed_ = true;  // before a handler ends the gesture
    if (!host_.press(position)) pressed_ = false;
}

void MouseInput::release(IntPoint position) noexcept {
    if (!pressed_) return;
    pressed_ = false;
    last_ = position;
    host_.release(position);
}

void MouseInput::endGesture() noexcept {
    forget();
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
