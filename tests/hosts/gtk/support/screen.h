#pragma once

#include <functional>
#include <string>
#include <vector>

#include "gtk/orvane-gtk.h"

namespace orvane::test {

/// Lets the main loop run until the condition holds; false when it does not within some seconds.
bool until(const std::function<bool()>& condition);
/// Lets the main loop run until nothing waits in it and the next frame has been shown.
void settle(GtkWidget* widget);

/// Real pointer events, in pixels of the screen: steps as in "mousemove 10 20 mousedown 1".
void pointer(const std::string& steps);
/// A press at the first point, moves, a release at the last.
struct ScreenPoint {
    int x, y;
};
void drag(const std::vector<ScreenPoint>& points);

/// A window without decorations at the screen's upper left corner, with one widget that fills it.
class Screen {
 public:
    static constexpr int kWidth = 400, kHeight = 300;

    Screen();
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    [[nodiscard]] OrvaneVistrel* control() const { return control_; }
    [[nodiscard]] GtkWidget* widget() const { return GTK_WIDGET(control_); }
    [[nodiscard]] GtkWindow* window() const { return window_; }
    void settle() const { test::settle(widget()); }
    /// Closes the window; the widget goes with it unless somebody holds it.
    void close();

 private:
    GtkWindow* window_;
    OrvaneVistrel* control_;
};

/// Whether an object has been finalized, which it must be by now if nothing leaked it.
class Grave {
 public:
    explicit Grave(gpointer object) : object_(object) { g_object_weak_ref(G_OBJECT(object), &onGone, this); }
    ~Grave() {
        if (object_ != nullptr) g_object_weak_unref(G_OBJECT(object_), &onGone, this);
    }
    Grave(const Grave&) = delete;
    Grave& operator=(const Grave&) = delete;
    [[nodiscard]] bool isTaken() const { return object_ == nullptr; }

 private:
    static void onGone(gpointer self, GObject*) { static_cast<Grave*>(self)->object_ = nullptr; }
    gpointer object_;
};

/// The picture's pixels as the control gives them away; empty without a picture.
std::vector<unsigned char> pixelsOf(OrvaneVistrel* control);

}  // namespace orvane::test
