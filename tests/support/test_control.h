#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string_view>

#include <orvane/headless_window.h>

#include "control/dispatch.h"
#include "control/member_table.h"

namespace orvane {

/// A control in a headless window, driven by member names as a host would.
class TestControl {
 public:
    explicit TestControl(int width = 400, int height = 300) : window_(width, height), control_(&window_) {
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

    VistrelControl& control() { return control_; }
    ImageDocument& document() { return control_.document; }
    HeadlessWindow& window() { return window_; }

 private:
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
    VistrelControl control_;
    long presentsSeen_ = 0;
};

}  // namespace orvane
