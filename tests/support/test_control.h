#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string_view>

#include <orvane/headless_clipboard.h>
#include <orvane/headless_window.h>

#include "control/dispatch.h"
#include "control/member_table.h"

namespace orvane {

/// A control in a headless window with a clipboard of its own, driven by member names as a host would.
class TestControl {
 public:
    explicit TestControl(int width = 400, int height = 300)
        : window_(width, height), control_(&window_, &clipboard_) {
        control_.onSize(width, height);
    }

    Value call(std::string_view name, std::initializer_list<Value> arguments = {}) {
        return run(name, InvokeKind::Method, arguments);
    }
    Value get(std::string_view name) { return run(name, InvokeKind::Get, {}); }
    void put(std::string_view name, Value value) { run(name, InvokeKind::Put, {value}); }

    int number(std::string_view name) { return get(name).number(); }
    bool flag(std::string_view name) { return get(name).boolean(); }
    std::uint32_t colour(std::string_view name) { return get(name).color().bgr; }

    /// How often the window was redrawn since the last question.
    long redraws() {
        const long since = window_.presents() - presentsSeen_;
        presentsSeen_ = window_.presents();
        return since;
    }

    // --- the mouse, as a window would report it ---

    TestControl& press(int x, int y) { return mouse(x, y, {true, false}, &VistrelControl::onLeftDown); }
    TestControl& release(int x, int y) { return mouse(x, y, {}, &VistrelControl::onLeftUp); }
    TestControl& rightPress(int x, int y) { return mouse(x, y, held_, &VistrelControl::onRightDown); }
    /// A move with the buttons that are held.
    TestControl& move(int x, int y) {
        window_.movePointer({x, y});
        control_.onMouseMove(x, y, held_);
        return *this;
    }
    /// A whole gesture: a press at the first point, moves, a release at the last.
    TestControl& drag(std::initializer_list<IntPoint> points) {
        const IntPoint first = *points.begin(), last = *(points.end() - 1);
        press(first.x, first.y);
        for (const IntPoint* point = points.begin() + 1; point != points.end(); ++point)
            move(point->x, point->y);
        return release(last.x, last.y);
    }
    TestControl& tick(int count = 1) {
        for (int i = 0; i < count && window_.isTimerRunning(); ++i) control_.onTimer();
        return *this;
    }

    VistrelControl& control() { return control_; }
    ImageDocument& document() { return control_.document; }
    HeadlessWindow& window() { return window_; }
    HeadlessClipboard& clipboard() { return clipboard_; }

 private:
    TestControl& mouse(int x, int y, MouseButtons held, void (VistrelControl::*message)(int, int) noexcept) {
        held_ = held;
        window_.movePointer({x, y});
        (control_.*message)(x, y);
        return *this;
    }

    Value run(std::string_view name, InvokeKind kind, std::initializer_list<Value> arguments) {
        const Member* member = findMember(name);
        if (member == nullptr) {
            ADD_FAILURE() << "no member " << name;
            return {};
        }
        Value result;
        const DispatchResult reached =
            invoke(control_, *member, kind, {arguments.begin(), arguments.size()}, &result);
        EXPECT_TRUE(reached) << name << ": argument " << reached.argument << " refused";
        return result;
    }

    HeadlessWindow window_;
    HeadlessClipboard clipboard_;
    VistrelControl control_;
    MouseButtons held_;
    long presentsSeen_ = 0;
};

}  // namespace orvane
